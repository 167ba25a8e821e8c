// A plan view over a small network with the dispatcher and the construction tools wired as
// the desktop program wires them, a host that records the dialogs and redraws asked for, and
// the literal undo of one step from the log, so that every edit can be checked for coming
// back whole.
#pragma once

#include <algorithm>
#include <deque>
#include <optional>
#include <string>
#include <vector>

#include "display/display_support.h"
#include "display/recording_surface.h"
#include "display/renderer.h"
#include "edit/edit_tools.h"
#include "edit/tool_dispatch.h"
#include "engineering/resistance.h"
#include "files/network_file.h"
#include "files/undo_log.h"
#include "model/network_rows.h"
#include "model/node_keys.h"

namespace karvane::edit::testing {

using display::testing::Scene;

struct ConstructRig : ToolHost, EditHost {
    Scene S;
    display::RecordingSurface Surface{800, 600};
    files::UndoLog Undo;
    ToolDispatcher D{S.M, S.Ds, S.Ui, *this};
    EditTools T{S.M, S.Ds, S.Ui, Undo, *this};

    std::deque<std::optional<CoordsResult>> CoordsAnswers; // an empty queue cancels
    std::vector<CoordsRequest> CoordsAsked;
    std::vector<std::string> Calls;
    std::vector<std::int32_t> EditorRows, FanRows;

    ConstructRig() {
        Undo.Open(S.Ui);
        S.Ds.View.CurRL = 500;
    }

    // The view: a plan 1000 m wide centred on (500, 500), every airway in it.
    void Show() {
        RecalcAllAirways(S.M);
        S.Refresh();
        display::SetViewBox(S.Ds, 1000, 750, 500, 500);
        Redraw();
    }
    float Wx(double x) const { return static_cast<float>((x - S.Ds.View.CentreX) * S.M.SgnX); }
    float Wy(double y) const { return static_cast<float>((y - S.Ds.View.CentreY) * S.M.SgnY); }

    void Tool(int value) { D.RunToolCommand(value); }
    // A drag in world metres from one point to another with a button, a move between.
    void Drag(double x1, double y1, double x2, double y2, int button = button::Left, int shift = 0) {
        D.OnMouseDown(button, shift, Wx(x1), Wy(y1), 0);
        D.OnMouseMove(button, shift, Wx(x2), Wy(y2), 0);
        D.OnMouseUp(button, shift, Wx(x2), Wy(y2), 0);
    }
    void Click(double x, double y, int button = button::Left) {
        D.OnMouseDown(button, 0, Wx(x), Wy(y), 0);
        D.OnMouseUp(button, 0, Wx(x), Wy(y), 0);
    }

    // ToolHost
    display::Surface* CurrentSurface() override { return &Surface; }
    void Redraw() override { display::RedrawWindow(S.M, S.Ds, Surface, S.Ui); }
    void RedrawAll() override { Redraw(); }
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
    void ToolPress(const ToolEvent& event) override { T.Press(event, D); }
    void ToolRelease(const ToolEvent& event) override { T.Release(event); }
    void ShowPopup(std::int32_t, float, float) override {}
    void HidePopup() override {}
    bool CoordinateDialogOpen() const override { return T.CoordinateDialogOpen(); }

    // EditHost
    std::optional<CoordsResult> ShowCoords(const CoordsRequest& request) override {
        CoordsAsked.push_back(request);
        if (CoordsAnswers.empty()) return std::nullopt;
        std::optional<CoordsResult> r = CoordsAnswers.front();
        CoordsAnswers.pop_front();
        return r;
    }
    void ShowAirwayEditor(std::int32_t row, int mode) override {
        EditorRows.push_back(row);
        Calls.push_back("Editor " + std::to_string(mode));
    }
    bool ShowFanDialog(std::int32_t row) override {
        FanRows.push_back(row);
        S.Row(row).FanNumber = 1;
        S.Row(row).NoOfFans = 1;
        return true;
    }
    void ShowAirwayInfo(std::int32_t) override {}
    void QuickUpdateAllWindows() override {
        Calls.push_back("Quick");
        Redraw();
    }
    void RedrawWindow() override {
        Calls.push_back("RedrawWindow");
        Redraw();
    }
    void RedrawAllWindows() override {
        Calls.push_back("RedrawAllWindows");
        Redraw();
    }

    // The rows of the network as file text, in order; the text says everything a row holds.
    std::vector<std::string> Rows() {
        std::vector<std::string> rows;
        for (std::int32_t row = 1; row <= S.M.AirwayCount; ++row) rows.push_back(files::AirwayRowText(S.M, row, '.'));
        return rows;
    }
    // The same, without the undo numbers and the mark of the display list, sorted: the
    // network as a set of airways.
    std::vector<std::string> Network() {
        std::vector<std::string> rows;
        for (std::int32_t row = 1; row <= S.M.AirwayCount; ++row) {
            Airway a = S.Row(row);
            a.UndoNo = 0;
            a.BranchCode &= ~bc::InView;
            std::swap(a, S.Row(row));
            rows.push_back(files::AirwayRowText(S.M, row, '.'));
            std::swap(a, S.Row(row));
        }
        std::sort(rows.begin(), rows.end());
        return rows;
    }
    // Entries of one step in the log.
    std::vector<int> Actions(std::int16_t step) const {
        std::vector<int> actions;
        for (std::int16_t k = 1; k < Undo.NextUndoRow; ++k)
            if (Undo.UndoIndex[static_cast<std::size_t>(k)].UndoStep == step)
                actions.push_back(Undo.UndoIndex[static_cast<std::size_t>(k)].UndoAction);
        return actions;
    }
    // The undo of the last step, as the Undo command does it.
    void UndoLastStep() { Undo.Undo(S.M, S.Ui); }
};

} // namespace karvane::edit::testing
