// A rig for the tools that act on picks and fences: a small plan view, the dispatcher, an undo
// log, the pick tools behind the host's release, and a record of the redraws and of the
// airways the finds showed. Gestures are given in world metres.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "edit/pick_tools.h"
#include "edit/show_airway.h"
#include "edit_support.h"
#include "files/undo_log.h"

namespace karvane::edit::testing {

// The dispatcher's host, passing the release of the pick tools on.
class ForwardingHost : public RecordingHost {
public:
    using RecordingHost::RecordingHost;
    PickTools* Tools = nullptr;
    ToolDispatcher* Dispatcher = nullptr;
    void ToolRelease(const ToolEvent& event) override {
        if (Tools && Dispatcher && PickTools::Handles(event.Tool)) Tools->Release(event, *Dispatcher);
    }
};

struct PickRig : EditHost, FinderHost {
    Scene S;
    ForwardingHost Host{S};
    ToolDispatcher D{S.M, S.Ds, S.Ui, Host};
    files::UndoLog Undo;
    PickTools T{S.M, S.Ds, S.Ui, Undo, *this, *this};
    std::vector<std::string> Calls;
    std::vector<std::pair<std::int32_t, float>> Shown;
    bool ShowForReal = false; // ShowAirwayRow runs ShowAirway on the view

    PickRig() {
        Host.AllAvailable = true;
        Host.Tools = &T;
        Host.Dispatcher = &D;
        Undo.Open(S.Ui);
    }

    // The view fitted to the network and drawn, so that the drawn list holds it.
    void Draw() {
        S.Refresh();
        display::FitView(S.M, S.Ds, S.Ui);
        Host.Redraw();
    }
    float WinX(double x) const { return static_cast<float>(x - S.Ds.View.CentreX); }
    float WinY(double y) const { return static_cast<float>(y - S.Ds.View.CentreY); }

    void Click(int tool, double x, double y, int button = button::Left) {
        D.RunToolCommand(tool);
        D.OnMouseDown(button, 0, WinX(x), WinY(y), 0);
        D.OnMouseUp(button, 0, WinX(x), WinY(y), 0);
    }
    void Drag(int tool, double x1, double y1, double x2, double y2, int button = button::Left) {
        D.RunToolCommand(tool);
        D.OnMouseDown(button, 0, WinX(x1), WinY(y1), 0);
        D.OnMouseMove(button, 0, WinX((x1 + x2) / 2), WinY((y1 + y2) / 2), 0);
        D.OnMouseMove(button, 0, WinX(x2), WinY(y2), 0);
        D.OnMouseUp(button, 0, WinX(x2), WinY(y2), 0);
    }

    // The index entries of the undo log, as step and action.
    std::vector<std::pair<int, int>> LogEntries() const {
        std::vector<std::pair<int, int>> out;
        for (int k = 1; k < Undo.NextUndoRow; ++k)
            out.emplace_back(Undo.UndoIndex[static_cast<std::size_t>(k)].UndoStep,
                             Undo.UndoIndex[static_cast<std::size_t>(k)].UndoAction);
        return out;
    }

    std::optional<CoordsResult> ShowCoords(const CoordsRequest&) override { return std::nullopt; }
    void ShowAirwayEditor(std::int32_t, int) override {}
    bool ShowFanDialog(std::int32_t) override { return false; }
    void ShowAirwayInfo(std::int32_t) override {}
    void QuickUpdateAllWindows() override { Calls.push_back("QuickUpdateAllWindows"); }
    void RedrawWindow() override {
        Calls.push_back("RedrawWindow");
        Host.Redraw();
    }
    void RedrawAllWindows() override {
        Calls.push_back("RedrawAllWindows");
        Host.Redraw();
    }
    void ShowAirwayRow(std::int32_t row, float fraction) override {
        Shown.emplace_back(row, fraction);
        if (ShowForReal) ShowAirway(S.M, S.Ds, S.Ui, row, fraction);
    }
};

} // namespace karvane::edit::testing
