// One construction on a generated mine of nearly 30,000 airways (three rows short of the
// capacity, so that a draw with two splits still fits): a draw from the middle of one drive to
// the middle of another, splitting both, with its undo records, the keys refreshed and the
// display list rebuilt, as the Draw tool does it at the release.
#include <benchmark/benchmark.h>

#include <cmath>
#include <memory>

#include "bench/quiet_host.h"
#include "display/display_list.h"
#include "display/drawn_list.h"
#include "display/view_transform.h"
#include "edit/edit_tools.h"
#include "generate/mine_generator.h"
#include "model/builtin_settings.h"
#include "model/node_keys.h"
#include "model/units.h"
#include "ui/scripted_ui.h"

namespace {

using namespace karvane;

void DrawWithTwoSplits(benchmark::State& state) {
    auto model = std::make_unique<Model>();
    auto ds = std::make_unique<display::DisplayState>();
    ui::ScriptedUserInterface ui;
    SetBuiltInUnits(model->Units);
    SetBuiltInSettings(*model);
    minegen::MineRequest request;
    request.Airways = MaxAirways - 3;
    minegen::GenerateMine(*model, request);
    BuildNodeKeys(*model, ui);
    display::ResetViewOptions(*model, *ds);
    ds->AreaWidth = 1600;
    ds->AreaHeight = 1000;

    // Two parallel level drives side by side: the first long level airway and the nearest
    // other one of its level that runs the same way.
    auto level = [](const Airway& a) { return a.Z1 == a.Z2 && a.Y1 == a.Y2 && std::abs(a.X2 - a.X1) >= 30; };
    std::int32_t first = 0, second = 0;
    double best = 1e18;
    for (std::int32_t f = 1; f <= model->AirwayCount && second == 0; ++f) {
        const Airway& a = model->Airways[static_cast<std::size_t>(f)];
        if (!level(a)) continue;
        for (std::int32_t r = 1; r <= model->AirwayCount; ++r) {
            const Airway& b = model->Airways[static_cast<std::size_t>(r)];
            if (r == f || !level(b) || b.Z1 != a.Z1 || b.Y1 == a.Y1 || b.X1 != a.X1 || b.X2 != a.X2) continue;
            const double d = std::fabs(static_cast<double>(b.Y1) - a.Y1);
            if (d < best) {
                best = d;
                first = f;
                second = r;
            }
        }
    }
    if (first == 0 || second == 0) {
        state.SkipWithError("no two parallel drives");
        return;
    }
    const Airway& a = model->Airways[static_cast<std::size_t>(first)];
    const Airway& b = model->Airways[static_cast<std::size_t>(second)];
    const double fromX = (a.X1 + a.X2) / 2.0, fromY = a.Y1, toX = (b.X1 + b.X2) / 2.0 + 7, toY = b.Y1;

    // A plan view of that level round the two.
    display::ViewState& v = ds->View;
    v.Is3D = 0;
    v.LevelMode = display::lm::Single;
    v.CurrentRLMin = a.Z1 - 5;
    v.CurrentRLMax = a.Z1 + 5;
    v.CurRL = a.Z1;
    display::SetViewBox(*ds, static_cast<float>(4 * best), static_cast<float>(2.5 * best),
                        static_cast<float>((fromX + toX) / 2), static_cast<float>((fromY + toY) / 2));
    const std::vector<Airway> rows = model->Airways;
    const std::int32_t count = model->AirwayCount, lastNo = model->Set.LastAirwayNo;

    bench::QuietHost host;
    files::UndoLog undo;
    undo.Open(ui);
    edit::ToolDispatcher dispatcher(*model, *ds, ui, host);
    edit::EditTools tools(*model, *ds, ui, undo, host);
    edit::ToolEvent press;
    press.Tool = edit::tool::Draw;
    press.Button = 1;
    press.Window = 0;
    press.PressX = press.CurX = static_cast<float>((fromX - v.CentreX) * model->SgnX);
    press.PressY = press.CurY = static_cast<float>((fromY - v.CentreY) * model->SgnY);
    edit::ToolEvent release = press;
    release.CurX = static_cast<float>((toX - v.CentreX) * model->SgnX);
    release.CurY = static_cast<float>((toY - v.CentreY) * model->SgnY);

    std::int64_t made = 0;
    for (auto _ : state) {
        state.PauseTiming();
        model->Airways = rows;
        model->AirwayCount = count;
        model->Set.LastAirwayNo = lastNo;
        undo.ResetUndo();
        display::BuildDisplayList(*model, *ds);
        display::BuildDrawnList(*model, *ds);
        state.ResumeTiming();

        tools.Press(press, dispatcher);
        tools.Release(release);
        made += model->AirwayCount - count;
    }
    if (made != 3 * static_cast<std::int64_t>(state.iterations())) state.SkipWithError("the draw did not split both");
    state.counters["airways"] = static_cast<double>(count);
}

} // namespace

BENCHMARK(DrawWithTwoSplits)->Unit(benchmark::kMillisecond);

BENCHMARK_MAIN();
