// The windows around the tools in a benchmark: nothing is drawn, no dialog opens.
#pragma once

#include <optional>
#include <string>

#include "edit/edit_host.h"
#include "edit/tool_dispatch.h"

namespace karvane::bench {

struct QuietHost : edit::ToolHost, edit::EditHost {
    display::Surface* CurrentSurface() override { return nullptr; }
    void Redraw() override {}
    void RedrawAll() override {}
    void ShowViewStatus() override {}
    void ShowToolState(int) override {}
    void SetViewCursor(const std::string&) override {}
    void StartPowerZoomTimer(int) override {}
    void StopPowerZoomTimer() override {}
    void StopRotationTimer() override {}
    void SaveWindowState() override {}
    void MakeWindowCurrent(int) override {}
    void FocusWindow(int) override {}
    void RunCommand(int) override {}
    void StepLevel(int) override {}
    bool CommandAvailable(int) const override { return true; }
    void CommandUnavailable(int) override {}
    void ToolPress(const edit::ToolEvent&) override {}
    void ToolRelease(const edit::ToolEvent&) override {}
    void ShowPopup(std::int32_t, float, float) override {}
    void HidePopup() override {}
    std::optional<edit::CoordsResult> ShowCoords(const edit::CoordsRequest&) override { return std::nullopt; }
    void ShowAirwayEditor(std::int32_t, int) override {}
    bool ShowFanDialog(std::int32_t) override { return false; }
    void ShowAirwayInfo(std::int32_t) override {}
    void QuickUpdateAllWindows() override {}
    void RedrawWindow() override {}
    void RedrawAllWindows() override {}
};

} // namespace karvane::bench
