// The run driver, the post-run reversal of airways, the fixed direction question and the
// neighbour lists. Progress: every stage shows its percentage and lets the event loop run
// once, where the stop button of the progress window can set StopFlag.
#include "simulate/run.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "model/node_keys.h"
#include "simulate/balancing.h"
#include "simulate/fan_model.h"
#include "simulate/meshing.h"
#include "simulate/newton.h"
#include "simulate/pressures.h"
#include "simulate/run_modes.h"
#include "simulate/validation.h"

namespace karvane::simulate {

namespace {

// The progress of one run: what the user sees of it, and the hooks to the application.
class Progress {
public:
    Progress(Model& model, ui::UserInterface& ui, RunHooks* hooks) : model_(model), ui_(ui), hooks_(hooks) {}

    bool Shown() const { return model_.ShowProgress == 1; }
    void Show(int percent) {
        if (Shown()) ui_.ProgressPercent(percent);
        ui_.PumpEvents();
    }
    void Caption(const char* text) {
        if (Shown()) ui_.ProgressCaption(text);
    }
    bool Stopped() const { return model_.StopFlag == StopRequest::Stop; }
    void Redraw() {
        if (hooks_) hooks_->Redraw();
    }
    void Log(std::int32_t row, int action) {
        if (hooks_) hooks_->LogAirway(model_, row, action);
    }
    void EndUndoStep() {
        if (hooks_) hooks_->EndUndoStep();
    }

private:
    Model& model_;
    ui::UserInterface& ui_;
    RunHooks* hooks_;
};

// After the stages, or when a stage ends the run: airways that flow backwards by more than the
// allowed error are turned round, fans that run backwards are reported.
void PostRunStep(Model& model, Progress& progress) {
    progress.Redraw();
    if (progress.Stopped() || model.SimFail == RunResult::Failed) {
        progress.Caption("Simulation Failed !");
        return;
    }
    const float allowErr = model.Set.AllowErr;
    bool turned = false;
    for (std::int32_t i = 1; i <= model.AirwayCount; ++i) {
        Airway& a = model.Airways[i];
        if (a.IconLoc < 0.0f) a.IconLoc = -a.IconLoc;
        if (a.IconLoc > 1.0f) a.IconLoc = 0.5f;
        if (!(a.Quantity < 0.0f && std::fabs(a.Quantity) > allowErr)) continue;
        if (a.FanNumber == 0) {
            if (a.Has(bc::FixedDirection)) continue; // for CheckFixedDirections to ask about
            progress.Log(i, 2);
            ReverseAirway(model, i);
            progress.Log(i, 1);
            model.AirwaysTurned = true;
            turned = true;
        } else {
            ReportAirwayFault(model, i, "Fan flow reversed", "Flow Reversed");
            if (model.SimFail == RunResult::Good) model.SimFail = RunResult::Warnings;
        }
    }
    if (turned) progress.EndUndoStep();
}

// The stages of a run, in order; returns when the run ends, early or not.
void RunStages(Model& model, ui::UserInterface& ui, Progress& progress) {
    auto show = [&progress](int percent) { progress.Show(percent); };

    model.Run.ErrorListOpen = false;
    ui.ProgressError("");
    ui.ProgressAttempt("");
    progress.Show(0);
    progress.Caption("Checking airways");
    CheckNetwork(model, ui, show);
    if (progress.Stopped()) return PostRunStep(model, progress);
    if (model.SimFail == RunResult::Failed) {
        model.SimMode = RunMode::FindBulkheads;
        return PostRunStep(model, progress);
    }

    PrepareMeshOrder(model);
    progress.Show(40);
    if (progress.Stopped()) return PostRunStep(model, progress);
    progress.Caption("Meshing airways");
    BuildMeshes(model, ui);
    progress.Show(50);
    if (progress.Stopped()) return PostRunStep(model, progress);
    if (model.SimFail == RunResult::Good && model.SimMode >= RunMode::FindBulkheads &&
        model.SimMode <= RunMode::FindRestrictiveFans)
        SayNothingFound(model, ui);
    if (model.SimFail == RunResult::Failed || model.SimMode > RunMode::Normal) return PostRunStep(model, progress);

    if (!BuildWorkingCurves(model, ui)) return PostRunStep(model, progress);
    progress.Show(60);
    progress.Caption("Balancing airflows");
    if (model.Set.Solver == SolverNewton) BalanceFlowsNewton(model, ui);
    else BalanceFlows(model, ui);
    progress.Show(70);
    if (progress.Stopped()) return PostRunStep(model, progress);
    CloseBalance(model);
    progress.Show(80);
    if (progress.Stopped()) return PostRunStep(model, progress);
    StoreAirwayPressures(model);
    progress.Caption("Resolving Pressures");
    ui.PumpEvents();

    PostRunStep(model, progress);
    progress.Show(87);
    ResolveNodePressures(model, ui, show);
    CheckFixedDirections(model, ui);
    BuildNeighbourLists(model);
    progress.Show(100);
    if (model.SimFail == RunResult::Good && model.SimMode == RunMode::FindNonConverging)
        ui.Message("There are NO major convergence problems", ProgramName, ui::Icon::None);
    model.SimValid = Validity::Valid;
}

// Rows 1..n ordered by one key column, then by row.
template <typename KeyOf>
void OrderRows(std::int32_t* order, std::int32_t n, KeyOf keyOf) {
    for (std::int32_t i = 0; i < n; ++i) order[i] = i + 1;
    std::sort(order, order + n, [&keyOf](std::int32_t p, std::int32_t q) {
        const Fixed4 kp = keyOf(p), kq = keyOf(q);
        return kp < kq || (kp == kq && p < q);
    });
}

// The rows of `order` (ordered by keyOf) whose key is `key`: [first, last).
template <typename KeyOf>
std::pair<const std::int32_t*, const std::int32_t*> RowsWithKey(const std::int32_t* order, std::int32_t n, KeyOf keyOf,
                                                                Fixed4 key) {
    const std::int32_t* first =
        std::lower_bound(order, order + n, key, [&keyOf](std::int32_t row, Fixed4 k) { return keyOf(row) < k; });
    const std::int32_t* last =
        std::upper_bound(first, order + n, key, [&keyOf](Fixed4 k, std::int32_t row) { return k < keyOf(row); });
    return {first, last};
}

} // namespace

void RunAirflow(Model& model, ui::UserInterface& ui, RunHooks* hooks) {
    model.RestrictionFlag = false;
    model.AirwaysTurned = false;
    model.StopFlag = StopRequest::Go;
    // A count beyond the table can only come from a damaged state; the table holds no more.
    model.AirwayCount = std::clamp(model.AirwayCount, 0, MaxAirways);
    if (model.AirwayCount < 2) {
        ui.Message(model.AirwayCount < 1 ? "No data to simulate" : "Not enough data to simulate", ProgramName,
                   ui::Icon::Exclamation);
        model.StopFlag = StopRequest::Stop; // no run is active
        return;
    }
    ui.SetBusy(true);
    CheckFanCurves(model, ui);
    model.SimFail = RunResult::Good;
    model.ErrorList.clear();
    model.Run.NeighboursValid = false;

    Progress progress(model, ui, hooks);
    if (progress.Shown()) {
        ui.ProgressOpen();
        ui.ProgressCaption("Simulate");
        ui.PumpEvents();
    }
    RunStages(model, ui, progress);

    model.StopFlag = StopRequest::Stop;
    if (progress.Shown()) ui.ProgressClose();
    progress.Redraw();
    if (model.SimFail == RunResult::Good || model.SimMode == RunMode::RemoveBulkheads) {
        model.Run.ErrorListOpen = false;
    } else {
        model.Run.ErrorListOpen = true;
        model.Run.ErrorListCaption = model.SimFail == RunResult::Warnings ? WarningListTitle : ErrorListTitle;
    }
    model.RestrictionFlag = false;
    ui.SetBusy(false);
    model.NetworkSaved = No0;
}

void InvalidateSimulation(Model& model) { model.SimValid = Validity::NotValid; }

SimIndicator SimStatus(const Model& model) {
    if (model.SimValid == Validity::Valid) return {Rgb(0x00, 0xFF, 0x00), "OK", Rgb(0xC0, 0xFF, 0xC0)};
    return {Rgb(0xFF, 0xC0, 0x80), "SIM", Rgb(0xFF, 0xFF, 0xC0)};
}

void ReverseAirway(Model& model, std::int32_t row) {
    Airway& a = model.Airways[row];
    std::swap(a.EntryKey, a.ExitKey);
    std::swap(a.X1, a.X2);
    std::swap(a.Y1, a.Y2);
    std::swap(a.Z1, a.Z2);
    std::swap(a.EntryNode, a.ExitNode);
    a.Quantity = -a.Quantity;
    a.IconLoc = -a.IconLoc;
    const bool entrySurface = a.Has(bc::EntryAtSurface), exitSurface = a.Has(bc::ExitAtSurface);
    if (entrySurface || exitSurface) {
        a.BranchCode &= ~(bc::EntryAtSurface | bc::ExitAtSurface);
        if (entrySurface) a.BranchCode |= bc::ExitAtSurface;
        if (exitSurface) a.BranchCode |= bc::EntryAtSurface;
    }
}

void CheckFixedDirections(Model& model, ui::UserInterface& ui) {
    bool asked = false;
    bool allowed = false;
    for (std::int32_t i = 1; i <= model.AirwayCount; ++i) {
        const Airway& a = model.Airways[i];
        if (!(a.Quantity < 0.0f)) continue;
        const bool fixed = a.Has(bc::FixedDirection);
        if (fixed && !asked) {
            asked = true;
            allowed = ui.Ask("Karvane detects a number of airways have a 'FIXED DIRECTION' on them and require "
                             "reversing.  Karvane may not simulate correctly next time unless these airways are "
                             "reversed.  Do you want to allow Karvane to do this ?",
                             "Reverse airways", ui::Buttons::YesNo, ui::Icon::Question) == ui::Answer::Yes;
        }
        if (fixed && !allowed) continue;
        ReverseAirway(model, i);
    }
}

void BuildNeighbourLists(Model& model) {
    RunState& run = model.Run;
    const std::int32_t n = std::min<std::int32_t>(model.AirwayCount, MaxAirways);
    const Airway* rows = model.Airways.data();
    auto entryKey = [rows](std::int32_t r) { return rows[r].EntryKey; };
    auto exitKey = [rows](std::int32_t r) { return rows[r].ExitKey; };
    std::int32_t* byEntry = run.RowsByEntry();
    std::int32_t* byExit = run.RowsByExit();
    OrderRows(byEntry, n, entryKey);
    OrderRows(byExit, n, exitKey);

    // Count first: a network with many surface connections can need more than the list holds,
    // and then the list grows rather than lose neighbours.
    std::int64_t total = 0;
    for (std::int32_t i = 1; i <= n; ++i) {
        auto [uf, ul] = RowsWithKey(byExit, n, exitKey, rows[i].EntryKey);
        auto [df, dl] = RowsWithKey(byEntry, n, entryKey, rows[i].ExitKey);
        total += (ul - uf) + (dl - df);
        if (rows[i].EntryKey == rows[i].ExitKey) total -= 2; // a row is no neighbour of itself
    }
    if (total + 1 > static_cast<std::int64_t>(run.NodeLinkList.size()))
        run.NodeLinkList.resize(static_cast<std::size_t>(total) + 1);

    std::int16_t* list = run.NodeLinkList.data();
    std::int32_t pos = 1;
    for (int down = 0; down <= 1; ++down) {
        for (std::int32_t i = 1; i <= n; ++i) {
            const auto [first, last] = down ? RowsWithKey(byEntry, n, entryKey, rows[i].ExitKey)
                                            : RowsWithKey(byExit, n, exitKey, rows[i].EntryKey);
            run.NodeLink[4 * i + (down ? DownFirst : UpFirst)] = pos;
            for (const std::int32_t* p = first; p != last; ++p)
                if (*p != i) list[pos++] = static_cast<std::int16_t>(*p);
            run.NodeLink[4 * i + (down ? DownLast : UpLast)] = pos - 1;
        }
    }
    run.NeighboursValid = true;
}

std::span<const std::int16_t> Upstream(const Model& model, std::int32_t row) {
    const RunState& run = model.Run;
    if (!run.NeighboursValid || row < 1 || row > std::min<std::int32_t>(model.AirwayCount, MaxAirways)) return {};
    const std::int32_t first = run.NodeLink[4 * row + UpFirst], last = run.NodeLink[4 * row + UpLast];
    return {run.NodeLinkList.data() + first, static_cast<std::size_t>(std::max(0, last - first + 1))};
}

std::span<const std::int16_t> Downstream(const Model& model, std::int32_t row) {
    const RunState& run = model.Run;
    if (!run.NeighboursValid || row < 1 || row > std::min<std::int32_t>(model.AirwayCount, MaxAirways)) return {};
    const std::int32_t first = run.NodeLink[4 * row + DownFirst], last = run.NodeLink[4 * row + DownLast];
    return {run.NodeLinkList.data() + first, static_cast<std::size_t>(std::max(0, last - first + 1))};
}

} // namespace karvane::simulate
