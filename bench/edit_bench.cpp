// The editing tools on the generated mine of 30,000 airways: a fence delete of 5,000 airways
// through the delete tool (question, rows logged, table compacted, display list rebuilt), and
// FindNext over the whole table (a node name that only the last row holds).
#include <benchmark/benchmark.h>

#include <filesystem>
#include <memory>

#include "display/display_list.h"
#include "display/drawn_list.h"
#include "display/picking.h"
#include "display/view_transform.h"
#include "edit/find.h"
#include "edit/pick_tools.h"
#include "files/undo_log.h"
#include "generate/mine_generator.h"
#include "model/builtin_settings.h"
#include "model/node_keys.h"
#include "model/units.h"
#include "ui/scripted_ui.h"

namespace {

using namespace karvane;

struct QuietHost : edit::EditHost, edit::FinderHost {
    std::optional<edit::CoordsResult> ShowCoords(const edit::CoordsRequest&) override { return std::nullopt; }
    void ShowAirwayEditor(std::int32_t, int) override {}
    bool ShowFanDialog(std::int32_t) override { return false; }
    void ShowAirwayInfo(std::int32_t) override {}
    void QuickUpdateAllWindows() override {}
    void RedrawWindow() override {}
    void RedrawAllWindows() override {}
    void ShowAirwayRow(std::int32_t, float) override {}
};

struct Mine {
    std::unique_ptr<Model> M = std::make_unique<Model>();
    std::unique_ptr<display::DisplayState> Ds = std::make_unique<display::DisplayState>();
    ui::ScriptedUserInterface Ui;
    files::UndoLog Undo;
    QuietHost Host;

    Mine() {
        SetBuiltInUnits(M->Units);
        SetBuiltInSettings(*M);
        minegen::MineRequest request;
        request.Airways = 30000;
        minegen::GenerateMine(*M, request);
        BuildNodeKeys(*M, Ui);
        display::ResetViewOptions(*M, *Ds);
        Ds->AreaWidth = 1600;
        Ds->AreaHeight = 1000;
        Ds->View.LevelMode = display::lm::All;
        Ui.Temp = std::filesystem::temp_directory_path().string();
        Undo.Open(Ui);
        Refresh();
        display::FitView(*M, *Ds, Ui);
        Refresh();
    }
    void Refresh() {
        display::BuildDisplayList(*M, *Ds);
        display::ApplyRotation(*M, *Ds);
        display::BuildDrawnList(*M, *Ds);
    }
};

// A fence from the left edge of the view to the x that holds about `wanted` airways.
edit::ToolEvent FenceOf(Mine& mine, std::size_t wanted) {
    const display::ViewState& v = mine.Ds->View;
    edit::ToolEvent e;
    e.Tool = edit::tool::Delete;
    e.Button = edit::button::Left;
    e.Fence = true;
    e.PressX = v.ScaleLeft - 10;
    e.PressY = v.ScaleTop - 10;
    e.CurY = v.ScaleTop + v.ScaleHeight + 10;
    float lo = e.PressX, hi = v.ScaleLeft + v.ScaleWidth + 10;
    for (int k = 0; k < 40; ++k) {
        e.CurX = (lo + hi) / 2;
        const std::size_t n =
            display::RowsInFence(*mine.M, *mine.Ds, display::MakeFence(*mine.M, e.PressX, e.PressY, e.CurX, e.CurY))
                .size();
        (n < wanted ? lo : hi) = e.CurX;
    }
    e.CurX = hi;
    return e;
}

void FenceDelete(benchmark::State& state) {
    Mine mine;
    const std::vector<Airway> original(mine.M->Airways.begin(), mine.M->Airways.end());
    const std::int32_t count = mine.M->AirwayCount;
    const edit::ToolEvent fence = FenceOf(mine, 5000);
    edit::PickTools tools(*mine.M, *mine.Ds, mine.Ui, mine.Undo, mine.Host, mine.Host);
    std::int32_t deleted = 0;
    for (auto _ : state) {
        state.PauseTiming();
        std::copy(original.begin(), original.end(), mine.M->Airways.begin());
        mine.M->AirwayCount = count;
        mine.Undo.ResetUndo();
        mine.Refresh();
        mine.Ui.Transcript.clear();
        state.ResumeTiming();
        tools.DeleteTool(fence);
        deleted = count - mine.M->AirwayCount;
    }
    state.counters["deleted"] = static_cast<double>(deleted);
}

// The same fence delete and then its undo step, as the Undo command runs it: the rows put back,
// the keys rebuilt and the display list rebuilt.
void FenceDeleteAndUndo(benchmark::State& state) {
    Mine mine;
    const std::vector<Airway> original(mine.M->Airways.begin(), mine.M->Airways.end());
    const std::int32_t count = mine.M->AirwayCount;
    const edit::ToolEvent fence = FenceOf(mine, 5000);
    edit::PickTools tools(*mine.M, *mine.Ds, mine.Ui, mine.Undo, mine.Host, mine.Host);
    std::int32_t restored = 0;
    for (auto _ : state) {
        state.PauseTiming();
        std::copy(original.begin(), original.end(), mine.M->Airways.begin());
        mine.M->AirwayCount = count;
        mine.Undo.ResetUndo();
        mine.Refresh();
        mine.Ui.Transcript.clear();
        state.ResumeTiming();
        tools.DeleteTool(fence);
        mine.Undo.Undo(*mine.M, mine.Ui);
        display::BuildDisplayList(*mine.M, *mine.Ds);
        display::ApplyRotation(*mine.M, *mine.Ds);
        restored = mine.M->AirwayCount;
    }
    state.counters["airways"] = static_cast<double>(restored);
}

void FindNextWholeTable(benchmark::State& state) {
    Mine mine;
    const std::int32_t last = mine.M->AirwayCount;
    mine.M->Airways[static_cast<std::size_t>(last)].ExitNode = "TARGET NODE";
    FindState& f = mine.M->Find;
    f.FindKind = find::NodeName;
    f.FindText = "GET NO";
    std::int32_t found = 0;
    for (auto _ : state) {
        f.FindFrom = 1;
        found = edit::FindNext(*mine.M, *mine.Ds, mine.Ui, mine.Host);
        benchmark::DoNotOptimize(found);
    }
    state.counters["row"] = static_cast<double>(found);
}

} // namespace

BENCHMARK(FenceDelete)->Unit(benchmark::kMillisecond)->Iterations(10);
BENCHMARK(FenceDeleteAndUndo)->Unit(benchmark::kMillisecond)->Iterations(10);
BENCHMARK(FindNextWholeTable)->Unit(benchmark::kMillisecond);

BENCHMARK_MAIN();
