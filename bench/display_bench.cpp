// The display on generated mines of 1,000, 10,000 and 30,000 airways: one step of an
// interactive rotation (rotate, drawn list, lines), a full redraw with annotation, and the
// airway pick, all on the null surface so that only the display's own work is measured.
#include <benchmark/benchmark.h>

#include <memory>
#include <random>

#include "display/display_list.h"
#include "display/drawn_list.h"
#include "display/mapped_surface.h"
#include "display/picking.h"
#include "display/renderer.h"
#include "display/svg_surface.h"
#include "display/view_transform.h"
#include "generate/mine_generator.h"
#include "model/builtin_settings.h"
#include "model/node_keys.h"
#include "model/units.h"
#include "ui/scripted_ui.h"

namespace {

using namespace karvane;
using namespace karvane::display;

struct Mine {
    std::unique_ptr<Model> M = std::make_unique<Model>();
    std::unique_ptr<DisplayState> Ds = std::make_unique<DisplayState>();
    ui::ScriptedUserInterface Ui;
    NullSurface Surface{1600, 1000};

    explicit Mine(std::int32_t airways) {
        SetBuiltInUnits(M->Units);
        SetBuiltInSettings(*M);
        minegen::MineRequest request;
        request.Airways = airways;
        minegen::GenerateMine(*M, request);
        BuildNodeKeys(*M, Ui);
        ResetViewOptions(*M, *Ds);
        Ds->AreaWidth = 1600;
        Ds->AreaHeight = 1000;
        Ds->View.LevelMode = lm::All;
        // The iso view of the permanent views, fitted.
        Ds->View.Is3D = 1;
        Ds->View.Tilt = 1.0f;
        Ds->View.Spin = 5.892f;
        BuildDisplayList(*M, *Ds);
        FitView(*M, *Ds, Ui);
        ApplyRotation(*M, *Ds);
    }
};

void RotationStep(benchmark::State& state) {
    Mine mine(static_cast<std::int32_t>(state.range(0)));
    DisplayState& ds = *mine.Ds;
    for (auto _ : state) {
        ds.SpinStep = 0.01f;
        ApplyRotation(*mine.M, ds);
        ds.SpinStep = 0;
        BuildDrawnList(*mine.M, ds);
        mine.Surface.Clear();
        DrawLines(*mine.M, ds, mine.Surface);
        benchmark::DoNotOptimize(ds.Drawn.data());
    }
    state.counters["drawn"] = static_cast<double>(ds.Drawn.size());
}

void FullRedraw(benchmark::State& state) {
    Mine mine(static_cast<std::int32_t>(state.range(0)));
    for (auto _ : state) {
        RedrawWindow(*mine.M, *mine.Ds, mine.Surface, mine.Ui);
    }
    state.counters["drawn"] = static_cast<double>(mine.Ds->Drawn.size());
}

// A plan view zoomed to a 400 metre box in the middle of the mine: every kind of text is drawn.
void FullRedrawZoomed(benchmark::State& state) {
    Mine mine(static_cast<std::int32_t>(state.range(0)));
    DisplayState& ds = *mine.Ds;
    ds.View.Is3D = 0;
    BuildDisplayList(*mine.M, ds);
    FitView(*mine.M, ds, mine.Ui);
    SetViewBox(ds, 400, 250, ds.View.CentreX, ds.View.CentreY);
    for (auto _ : state) {
        RedrawWindow(*mine.M, ds, mine.Surface, mine.Ui);
    }
    state.counters["drawn"] = static_cast<double>(ds.Drawn.size());
}

void FindAirwayPick(benchmark::State& state) {
    Mine mine(static_cast<std::int32_t>(state.range(0)));
    DisplayState& ds = *mine.Ds;
    BuildDrawnList(*mine.M, ds);
    std::mt19937 rng(5);
    std::uniform_real_distribution<float> x(ds.View.ScaleLeft, ds.View.ScaleLeft + ds.View.ScaleWidth);
    std::uniform_real_distribution<float> y(ds.View.ScaleTop, ds.View.ScaleTop + ds.View.ScaleHeight);
    std::int64_t hits = 0;
    for (auto _ : state) {
        const AirwayPick p = FindAirway(*mine.M, ds, x(rng), y(rng));
        hits += p.Airway != 0;
    }
    state.counters["hit share"] = static_cast<double>(hits) / static_cast<double>(state.iterations());
}

void SvgPicture(benchmark::State& state) {
    Mine mine(static_cast<std::int32_t>(state.range(0)));
    for (auto _ : state) {
        SvgSurface svg(1600, 1000);
        RedrawWindow(*mine.M, *mine.Ds, svg, mine.Ui);
        benchmark::DoNotOptimize(svg.Document());
    }
}

} // namespace

BENCHMARK(RotationStep)->Arg(1000)->Arg(10000)->Arg(30000)->Unit(benchmark::kMillisecond);
BENCHMARK(FullRedraw)->Arg(1000)->Arg(10000)->Arg(30000)->Unit(benchmark::kMillisecond);
BENCHMARK(FullRedrawZoomed)->Arg(30000)->Unit(benchmark::kMillisecond);
BENCHMARK(FindAirwayPick)->Arg(1000)->Arg(10000)->Arg(30000)->Unit(benchmark::kMicrosecond);
BENCHMARK(SvgPicture)->Arg(30000)->Unit(benchmark::kMillisecond);

BENCHMARK_MAIN();
