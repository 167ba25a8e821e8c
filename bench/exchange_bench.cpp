// The exchange on generated mines of 1,000, 10,000 and 30,000 airways: the true DXF export and
// the text export, the import of both files as a new network, and the simplification of a mine
// whose airways were each drawn as two pieces.
#include <benchmark/benchmark.h>

#include <filesystem>
#include <memory>

#include "display/view_state.h"
#include "exchange/dxf_export.h"
#include "exchange/import.h"
#include "exchange/simplify.h"
#include "exchange/text_export.h"
#include "files/undo_log.h"
#include "generate/mine_generator.h"
#include "model/builtin_settings.h"
#include "model/network_rows.h"
#include "model/node_keys.h"
#include "model/units.h"
#include "ui/scripted_ui.h"

namespace {

using namespace karvane;

std::string BenchFile(const char* name) { return (std::filesystem::temp_directory_path() / name).string(); }

std::unique_ptr<Model> GeneratedMine(std::int32_t airways) {
    auto m = std::make_unique<Model>();
    SetBuiltInUnits(m->Units);
    SetBuiltInSettings(*m);
    minegen::MineRequest request;
    request.Airways = airways;
    minegen::GenerateMine(*m, request);
    ui::ScriptedUserInterface quiet;
    BuildNodeKeys(*m, quiet);
    return m;
}

void ExportDxf(benchmark::State& state) {
    auto m = GeneratedMine(static_cast<std::int32_t>(state.range(0)));
    auto ds = std::make_unique<display::DisplayState>();
    ui::ScriptedUserInterface ui;
    m->Set.DxfArrow = 5;
    m->Set.DxfNodeCircle = 2;
    const std::string file = BenchFile("karvane_bench_export.dxf");
    for (auto _ : state) benchmark::DoNotOptimize(exchange::ExportDxfTrue(*m, *ds, file, ui));
    state.SetItemsProcessed(state.iterations() * m->AirwayCount);
}

void ExportText(benchmark::State& state) {
    auto m = GeneratedMine(static_cast<std::int32_t>(state.range(0)));
    ui::ScriptedUserInterface ui;
    const std::string file = BenchFile("karvane_bench_export.txt");
    for (auto _ : state) benchmark::DoNotOptimize(exchange::ExportText(*m, file, ui));
    state.SetItemsProcessed(state.iterations() * m->AirwayCount);
}

// Imports a file written from the mine into a second model, as a new network each time.
void Import(benchmark::State& state, bool dxf) {
    auto m = GeneratedMine(static_cast<std::int32_t>(state.range(0)));
    ui::ScriptedUserInterface ui;
    const std::string file = BenchFile(dxf ? "karvane_bench_import.dxf" : "karvane_bench_import.txt");
    auto ds = std::make_unique<display::DisplayState>();
    if (dxf) {
        exchange::ExportDxfTrue(*m, *ds, file, ui);
    } else {
        exchange::ExportText(*m, file, ui);
    }
    auto into = std::make_unique<Model>();
    SetBuiltInUnits(into->Units);
    SetBuiltInSettings(*into);
    for (auto _ : state) benchmark::DoNotOptimize(exchange::ImportFile(*into, ui, file, {}));
    state.SetItemsProcessed(state.iterations() * into->AirwayCount);
}
void ImportDxf(benchmark::State& state) { Import(state, true); }
void ImportText(benchmark::State& state) { Import(state, false); }

// Every airway of a mine of half the size drawn as two pieces, so that the filter has a chain
// to merge at every airway that is not at a junction.
void Simplify(benchmark::State& state) {
    const auto whole = GeneratedMine(static_cast<std::int32_t>(state.range(0) / 2));
    auto pieces = std::make_unique<Model>(*whole);
    pieces->AirwayCount = 0;
    for (std::int32_t r = 1; r <= whole->AirwayCount; ++r) {
        const Airway& a = whole->Airways[static_cast<std::size_t>(r)];
        Airway first = a, second = a;
        first.X2 = second.X1 = (a.X1 + a.X2) / 2;
        first.Y2 = second.Y1 = (a.Y1 + a.Y2) / 2;
        first.Z2 = second.Z1 = (a.Z1 + a.Z2) / 2;
        first.BranchCode &= ~bc::ExitAtSurface;
        second.BranchCode &= ~bc::EntryAtSurface;
        pieces->Airways[static_cast<std::size_t>(NewAirwayRow(*pieces))] = first;
        pieces->Airways[static_cast<std::size_t>(NewAirwayRow(*pieces))] = second;
    }
    ui::ScriptedUserInterface ui;
    BuildNodeKeys(*pieces, ui);
    exchange::SimplifyFields f = exchange::FillSimplify();
    f.HSL = 2000;
    f.HSA = 30;
    exchange::SliderMoved(f);
    auto work = std::make_unique<Model>();
    for (auto _ : state) {
        state.PauseTiming();
        *work = *pieces;
        files::UndoLog undo;
        undo.Open(ui);
        ui.Transcript.clear();
        state.ResumeTiming();
        benchmark::DoNotOptimize(exchange::CmdSimp(*work, ui, undo, f));
    }
    state.SetItemsProcessed(state.iterations() * pieces->AirwayCount);
}

} // namespace

BENCHMARK(ExportDxf)->Arg(1000)->Arg(10000)->Arg(30000)->Unit(benchmark::kMillisecond);
BENCHMARK(ExportText)->Arg(1000)->Arg(10000)->Arg(30000)->Unit(benchmark::kMillisecond);
BENCHMARK(ImportDxf)->Arg(1000)->Arg(10000)->Arg(29998)->Unit(benchmark::kMillisecond);
BENCHMARK(ImportText)->Arg(1000)->Arg(10000)->Arg(30000)->Unit(benchmark::kMillisecond);
BENCHMARK(Simplify)->Arg(1000)->Arg(10000)->Arg(30000)->Unit(benchmark::kMillisecond);

BENCHMARK_MAIN();
