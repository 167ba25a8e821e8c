// The network file on a generated 29,998-airway mine (the most a file can hold whole): a save,
// a load of every section, and the node keys, row sort and connection checks that follow a load.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <filesystem>
#include <memory>

#include "files/duplicates.h"
#include "files/network_file.h"
#include "files/network_load.h"
#include "generate/mine_generator.h"
#include "model/builtin_settings.h"
#include "model/node_keys.h"
#include "simulate/validation.h"
#include "ui/scripted_ui.h"

namespace {

using namespace karvane;

constexpr std::int32_t kAirways = MaxAirways - 2;

struct SavedMine {
    std::unique_ptr<Model> M = std::make_unique<Model>();
    ui::ScriptedUserInterface Ui;
    std::string Path;

    SavedMine() {
        Ui.Temp = std::filesystem::temp_directory_path().string();
        Ui.DefaultAnswer = ui::Answer::No;
        Path = Ui.Temp + "/karvane_files_bench.sim";
        SetBuiltInSettings(*M);
        minegen::MineRequest plan;
        plan.Airways = kAirways;
        minegen::GenerateMine(*M, plan);
        M->FileName = Path;
        files::SaveNetwork(*M, Ui, 0);
    }
    ~SavedMine() { std::filesystem::remove(Path); }
};

SavedMine& Mine() {
    static SavedMine mine;
    return mine;
}

void BM_SaveNetwork(benchmark::State& state) {
    SavedMine& mine = Mine();
    for (auto _ : state) {
        mine.M->FileName = mine.Path;
        // Each save stamps the note; keep it from growing across iterations.
        mine.M->FileNote.clear();
        files::SaveNetwork(*mine.M, mine.Ui, 0);
    }
    state.counters["airways"] = static_cast<double>(mine.M->AirwayCount);
}

void BM_LoadNetwork(benchmark::State& state) {
    SavedMine& mine = Mine();
    auto model = std::make_unique<Model>();
    SetBuiltInSettings(*model);
    ui::ScriptedUserInterface quiet;
    quiet.DefaultAnswer = ui::Answer::No;
    for (auto _ : state) {
        files::LoadNetwork(*model, mine.Path, quiet);
    }
    state.counters["airways"] = static_cast<double>(model->AirwayCount);
    state.counters["messages"] = static_cast<double>(quiet.Transcript.size());
}

// Node keys, the row sort and the connection checks, from rows in file order each time.
void BM_KeysSortConnections(benchmark::State& state) {
    SavedMine& mine = Mine();
    auto model = std::make_unique<Model>();
    SetBuiltInSettings(*model);
    ui::ScriptedUserInterface quiet;
    quiet.DefaultAnswer = ui::Answer::No;
    files::LoadNetwork(*model, mine.Path, quiet);
    std::vector<Airway> rows(model->Airways.begin(), model->Airways.begin() + model->AirwayCount + 1);
    std::reverse(rows.begin() + 1, rows.end()); // out of key order, as a file may be
    const std::int32_t count = model->AirwayCount;
    for (auto _ : state) {
        state.PauseTiming();
        std::copy(rows.begin(), rows.end(), model->Airways.begin());
        model->AirwayCount = count;
        model->ErrorList.clear();
        state.ResumeTiming();
        BuildNodeKeys(*model, quiet);
        files::SortAirways(*model, quiet);
        simulate::CheckConnections(*model);
    }
    state.counters["airways"] = static_cast<double>(count);
}

BENCHMARK(BM_SaveNetwork)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_LoadNetwork)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_KeysSortConnections)->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
