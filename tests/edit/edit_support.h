// A scene for the tests of the view gestures and the dispatcher: a small network in a plan
// view, and a host that records what the dispatcher asks of the application around it.
#pragma once

#include <string>
#include <vector>

#include "display/display_support.h"
#include "display/recording_surface.h"
#include "display/renderer.h"
#include "edit/tool_dispatch.h"

namespace karvane::edit::testing {

using display::testing::Scene;

// A network of a square on level 500 and a raise down to 300, fitted in an 800 x 600 window.
inline void BuildSquare(Scene& s) {
    s.Add(0, 0, 500, 1000, 0, 500);
    s.Add(1000, 0, 500, 1000, 1000, 500);
    s.Add(1000, 1000, 500, 0, 1000, 500);
    s.Add(0, 1000, 500, 0, 0, 500);
    s.Add(1000, 1000, 500, 1000, 1000, 300);
    s.Refresh();
    display::FitView(s.M, s.Ds, s.Ui);
}

class RecordingHost : public ToolHost {
public:
    RecordingHost(Scene& scene) : S(scene), Surface(800, 600) {}

    Scene& S;
    display::RecordingSurface Surface;
    std::vector<std::string> Calls;
    std::vector<ToolEvent> Presses, Releases;
    std::vector<int> Commands, Unavailable;
    std::vector<int> Available{0, 1, 2, 3, 5, 13, 14, 18, 19, 20, 22, 23, 24, 25, 26, 27, 28, 31};
    bool AllAvailable = false;
    int PowerZoomInterval = -1;
    bool PowerZoomRunning = false;
    std::string Cursor;
    std::int32_t PopupRow = 0;
    int LevelSteps = 0;

    display::Surface* CurrentSurface() override { return &Surface; }
    void Redraw() override {
        Calls.push_back("Redraw");
        display::RedrawWindow(S.M, S.Ds, Surface, S.Ui);
    }
    void RedrawAll() override { Calls.push_back("RedrawAll"); }
    void ShowViewStatus() override {}
    void ShowToolState(int value) override { Calls.push_back("ToolState " + std::to_string(value)); }
    void SetViewCursor(const std::string& name) override { Cursor = name; }
    void StartPowerZoomTimer(int intervalMs) override {
        PowerZoomInterval = intervalMs;
        PowerZoomRunning = true;
    }
    void StopPowerZoomTimer() override { PowerZoomRunning = false; }
    void StopRotationTimer() override {}
    void SaveWindowState() override { Calls.push_back("SaveWindowState"); }
    void MakeWindowCurrent(int window) override { Calls.push_back("MakeWindowCurrent " + std::to_string(window)); }
    void FocusWindow(int) override {}
    void RunCommand(int value) override { Commands.push_back(value); }
    void StepLevel(int step) override { LevelSteps += step; }
    bool CommandAvailable(int value) const override {
        if (AllAvailable) return true;
        for (int v : Available)
            if (v == value) return true;
        return false;
    }
    void CommandUnavailable(int value) override { Unavailable.push_back(value); }
    void ToolPress(const ToolEvent& event) override { Presses.push_back(event); }
    void ToolRelease(const ToolEvent& event) override { Releases.push_back(event); }
    void ShowPopup(std::int32_t row, float, float) override { PopupRow = row; }
    void HidePopup() override { PopupRow = 0; }

    int Count(const std::string& call) const {
        int n = 0;
        for (const std::string& c : Calls) n += c == call ? 1 : 0;
        return n;
    }
};

} // namespace karvane::edit::testing
