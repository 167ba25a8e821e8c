// One undo of a move of 1,000 airways on a generated mine of 30,000: the selected airways
// moved by the Move tool's MoveSelected (1,000 rows logged before and after), then the undo
// that takes them back, with the node keys and the display list rebuilt as the command does.
#include <benchmark/benchmark.h>

#include <memory>

#include "bench/quiet_host.h"
#include "display/display_list.h"
#include "display/view_transform.h"
#include "edit/edit_tools.h"
#include "generate/mine_generator.h"
#include "model/builtin_settings.h"
#include "model/node_keys.h"
#include "model/units.h"
#include "ui/scripted_ui.h"

namespace {

using namespace karvane;

constexpr std::int32_t kMoved = 1000;

void UndoOfAThousandAirwayMove(benchmark::State& state) {
    auto model = std::make_unique<Model>();
    auto ds = std::make_unique<display::DisplayState>();
    ui::ScriptedUserInterface ui;
    SetBuiltInUnits(model->Units);
    SetBuiltInSettings(*model);
    minegen::MineRequest request;
    request.Airways = MaxAirways;
    minegen::GenerateMine(*model, request);
    BuildNodeKeys(*model, ui);
    display::ResetViewOptions(*model, *ds);
    ds->View.LevelMode = display::lm::All;
    display::BuildDisplayList(*model, *ds);
    // A block of 1,000 airways of one part of the mine, as a fence would take them.
    for (std::int32_t r = 1; r <= kMoved; ++r) model->Airways[static_cast<std::size_t>(r)].BranchCode |= bc::Selected;

    bench::QuietHost host;
    files::UndoLog undo;
    undo.Open(ui);
    edit::EditTools tools(*model, *ds, ui, undo, host);
    std::int64_t restored = 0;
    for (auto _ : state) {
        state.PauseTiming();
        tools.MoveSelected(25, -25, 0, false);
        state.ResumeTiming();

        if (undo.Undo(*model, ui)) restored += kMoved;
        display::BuildDisplayList(*model, *ds);
        display::ApplyRotation(*model, *ds);
    }
    if (restored != kMoved * static_cast<std::int64_t>(state.iterations())) state.SkipWithError("the undo did nothing");
    state.counters["airways"] = static_cast<double>(model->AirwayCount);
    state.counters["moved"] = kMoved;
}

} // namespace

BENCHMARK(UndoOfAThousandAirwayMove)->Unit(benchmark::kMillisecond);
BENCHMARK_MAIN();
