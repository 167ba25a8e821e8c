// Scenario studies on generated mines of 1,000, 10,000 and 30,000 airways: a sweep of one drive's width
// (each scenario a copy of the balanced mine, the width set through the airway editor, the
// network balanced again), run serially and on two workers. The counter gives scenarios per
// second; the wall time of two workers against half the serial time shows what the threads
// give on this machine.
#include <benchmark/benchmark.h>

#include <filesystem>
#include <map>
#include <memory>
#include <stdexcept>
#include <string>

#include "generate/mine_generator.h"
#include "model/builtin_settings.h"
#include "script/study.h"
#include "simulate/run.h"
#include "ui/scripted_ui.h"

namespace {

using namespace karvane;

// A generated mine balanced once, so that every scenario starts from the stored flows.
struct StudyMine {
    std::unique_ptr<Model> M = std::make_unique<Model>();
    script::Study Sweep;

    StudyMine(std::int32_t airways, int scenarios) {
        SetBuiltInSettings(*M);
        minegen::MineRequest plan;
        plan.Airways = airways;
        plan.Seed = 1;
        minegen::GenerateMine(*M, plan);
        M->ShowProgress = 0;
        M->Set.MaxIter = 5000;
        ui::ScriptedUserInterface ui;
        ui.DefaultAnswer = ui::Answer::No;
        simulate::RunAirflow(*M, ui);
        // A drive in the middle of the rows: the generator numbers airways by row.
        const std::int32_t drive = M->Airways[static_cast<std::size_t>(airways / 2)].AirwayNo;
        const std::string text = "vary " + std::to_string(drive) + " TxtWidth 4 6 " + std::to_string(scenarios) + "\n";
        if (const std::string fault = script::ReadStudy(text, *M, Sweep); !fault.empty())
            throw std::runtime_error(fault);
    }
};

const StudyMine& Mine(std::int32_t airways) {
    static std::map<std::int32_t, std::unique_ptr<StudyMine>> mines;
    auto& m = mines[airways];
    if (!m) m = std::make_unique<StudyMine>(airways, airways >= 30000 ? 16 : airways >= 10000 ? 64 : 32);
    return *m;
}

// Arguments: airways, workers.
void BM_StudySweep(benchmark::State& state) {
    const StudyMine& mine = Mine(static_cast<std::int32_t>(state.range(0)));
    script::StudyOptions o;
    o.Jobs = static_cast<int>(state.range(1));
    o.TempPath = std::filesystem::temp_directory_path().string();
    std::size_t failed = 0, scenarios = 0;
    for (auto _ : state) {
        const std::vector<script::ScenarioResult> results = script::RunStudy(*mine.M, mine.Sweep, o);
        for (const script::ScenarioResult& r : results) failed += r.Failed() ? 1 : 0;
        scenarios += results.size();
    }
    if (failed > 0) state.SkipWithError("a scenario failed");
    state.counters["scenarios/s"] = benchmark::Counter(static_cast<double>(scenarios), benchmark::Counter::kIsRate);
    state.counters["scenarios"] = static_cast<double>(mine.Sweep.Scenarios.size());
}
BENCHMARK(BM_StudySweep)
    ->Args({1000, 1})
    ->Args({1000, 2})
    ->Args({10000, 1})
    ->Args({10000, 2})
    ->Args({30000, 1})
    ->Args({30000, 2})
    ->UseRealTime()
    ->Unit(benchmark::kMillisecond)
    ->Iterations(1);

} // namespace
BENCHMARK_MAIN();
