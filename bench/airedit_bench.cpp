// The airway editor on a generated 29,998-airway mine: opening it on one airway (every list
// filled, every box from the airway), a multiple-selection apply of the friction factor to
// 5,000 selected airways (each row logged before and after), and filling the information card.
#include <benchmark/benchmark.h>

#include <filesystem>
#include <memory>

#include "files/undo_log.h"
#include "forms/air_edit.h"
#include "forms/air_info.h"
#include "generate/mine_generator.h"
#include "model/builtin_settings.h"
#include "model/network_rows.h"
#include "model/units.h"
#include "ui/scripted_ui.h"

namespace {

using namespace karvane;

constexpr std::int32_t kAirways = MaxAirways - 2;
constexpr std::int32_t kSelected = 5000;

struct Editor {
    std::unique_ptr<Model> M = std::make_unique<Model>();
    ui::ScriptedUserInterface Ui;
    files::UndoLog Undo;
    forms::AirEditMemory Memory;
    std::unique_ptr<forms::AirEditForm> Form;

    Editor() {
        Ui.Temp = std::filesystem::temp_directory_path().string();
        SetBuiltInCapacities(*M);
        SetBuiltInSettings(*M);
        SetBuiltInUnits(M->Units);
        AllocateNetwork(*M);
        minegen::MineRequest plan;
        plan.Airways = kAirways;
        minegen::GenerateMine(*M, plan);
        Undo.Open(Ui);
        Form = std::make_unique<forms::AirEditForm>(*M, Ui, Undo, Memory, '.');
    }
};

Editor& Mine() {
    static Editor editor;
    return editor;
}

void BM_AirEditOpen(benchmark::State& state) {
    Editor& e = Mine();
    const std::int32_t row = e.M->AirwayCount / 2;
    for (auto _ : state) {
        e.Form->Open(row, forms::AirEditSingle, 0.5f);
        benchmark::DoNotOptimize(e.Form->Fields().TxtWidth.data());
        e.Form->Cancel();
    }
    state.counters["airways"] = e.M->AirwayCount;
}

void BM_AirEditMultipleApply(benchmark::State& state) {
    Editor& e = Mine();
    // Every sixth airway selected: 5,000 spread over the mine.
    std::int32_t selected = 0;
    for (std::int32_t r = 1; r <= e.M->AirwayCount; ++r) {
        Airway& a = e.M->Airways[static_cast<std::size_t>(r)];
        a.BranchCode &= ~bc::Selected;
        if ((r - 1) % 6 == 0 && selected < kSelected) {
            a.BranchCode |= bc::Selected;
            ++selected;
        }
    }
    bool rough = false;
    for (auto _ : state) {
        state.PauseTiming();
        e.Undo.ResetUndo();
        e.Form->Open(1, forms::AirEditMultiple, 0.5f);
        e.Form->SetControl("ChkFixK", "1");
        e.Form->SetControl("TxtWall", rough ? "0.02" : "0.015");
        rough = !rough;
        state.ResumeTiming();
        e.Form->Ok();
    }
    state.counters["selected"] = selected;
}

void BM_AirInfoFill(benchmark::State& state) {
    Editor& e = Mine();
    const std::int32_t row = e.M->AirwayCount / 3;
    for (auto _ : state) {
        const forms::AirInfoCard card = forms::FillAirInfo(*e.M, row, '.');
        benchmark::DoNotOptimize(card.Rows.data());
    }
}

} // namespace

BENCHMARK(BM_AirEditOpen)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_AirEditMultipleApply)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_AirInfoFill)->Unit(benchmark::kMicrosecond);

BENCHMARK_MAIN();
