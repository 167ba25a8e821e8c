// The network spreadsheet on a generated 29,998-airway mine: filling the grid (every cell's
// text in display units, sorted on "No."), sorting by a number and a text column, and the save
// with nothing changed and with every row's width changed (each row logged to the undo log).
#include <benchmark/benchmark.h>

#include <filesystem>
#include <memory>
#include <numeric>

#include "display/view_state.h"
#include "files/undo_log.h"
#include "forms/spreadsheet_form.h"
#include "generate/mine_generator.h"
#include "model/builtin_settings.h"
#include "model/network_rows.h"
#include "model/units.h"
#include "ui/scripted_ui.h"

namespace {

using namespace karvane;

constexpr std::int32_t kAirways = MaxAirways - 2;

struct NoHost : forms::SpreadSheetHost {
    void ShowAirwayEditor(std::int32_t) override {}
    void ShowAirwayInfo(std::int32_t) override {}
    void RunSimulation() override {}
    void RefreshViews() override {}
};

struct Sheet {
    std::unique_ptr<Model> M = std::make_unique<Model>();
    display::DisplayState Ds;
    ui::ScriptedUserInterface Ui;
    files::UndoLog Undo;
    NoHost Host;
    forms::SheetWidths Widths;
    std::unique_ptr<forms::SpreadSheetForm> Form;

    Sheet() {
        Ui.Temp = std::filesystem::temp_directory_path().string();
        SetBuiltInCapacities(*M);
        SetBuiltInSettings(*M);
        SetBuiltInUnits(M->Units);
        AllocateNetwork(*M);
        minegen::MineRequest plan;
        plan.Airways = kAirways;
        minegen::GenerateMine(*M, plan);
        Undo.Open(Ui);
        Ds.DisplayList.resize(static_cast<std::size_t>(M->AirwayCount));
        std::iota(Ds.DisplayList.begin(), Ds.DisplayList.end(), 1);
        Form = std::make_unique<forms::SpreadSheetForm>(*M, Ds, Undo, Ui, Host, Widths);
        Form->Open();
    }
};

Sheet& Mine() {
    static Sheet sheet;
    return sheet;
}

void BM_SheetFill(benchmark::State& state) {
    Sheet& s = Mine();
    for (auto _ : state) s.Form->Fill();
    state.counters["rows"] = s.Form->RowCount();
}

void SortBy(benchmark::State& state, int col) {
    Sheet& s = Mine();
    s.Form->Fill();
    bool ascending = false;
    for (auto _ : state) {
        s.Form->SetCurrent(1, col);
        s.Form->Sort(ascending);
        ascending = !ascending;
    }
}

void BM_SheetSortResistance(benchmark::State& state) { SortBy(state, forms::sc::Resistance); }
void BM_SheetSortName(benchmark::State& state) { SortBy(state, forms::sc::Name); }

void BM_SaveGridUnchanged(benchmark::State& state) {
    Sheet& s = Mine();
    s.Form->Fill();
    for (auto _ : state) s.Form->SaveGrid();
}

void BM_SaveGridEveryRow(benchmark::State& state) {
    Sheet& s = Mine();
    s.Ui.DefaultAnswer = ui::Answer::OK;
    double width = 4.0;
    for (auto _ : state) {
        state.PauseTiming();
        s.Form->Fill();
        width += 0.5;
        s.Form->Select(1, forms::sc::Width, s.Form->RowCount(), forms::sc::Width);
        s.Form->Paste(std::to_string(width));
        state.ResumeTiming();
        s.Form->SaveGrid();
    }
    s.Ui.Transcript.clear();
}

} // namespace

BENCHMARK(BM_SheetFill)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_SheetSortResistance)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_SheetSortName)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_SaveGridUnchanged)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_SaveGridEveryRow)->Unit(benchmark::kMillisecond)->Iterations(3);

BENCHMARK_MAIN();
