// The airflow run on generated mines of 1,000, 10,000 and 30,000 airways: each stage on its own
// (checking, meshing, balancing, pressures and neighbour lists), the whole run from still air
// and a run again over a balanced network. Counters give the balancing passes, the mesh
// entries that balancing works through per second, and the heap karvane::bench::allocations of each stage.
// Balancing, the whole run and the run again are measured by both methods side by side
// (second argument: 0 Hardy Cross, 1 Newton); balancing also from stored flows, and Newton's
// largest flow difference from the Hardy Cross answer.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <atomic>
#include <cmath>
#include <cstdlib>
#include <map>
#include <memory>
#include <new>
#include <vector>

#include "bench/allocation_counter.h"
#include "generate/mine_generator.h"
#include "model/builtin_settings.h"
#include "simulate/balancing.h"
#include "simulate/fan_model.h"
#include "simulate/meshing.h"
#include "simulate/newton.h"
#include "simulate/pressures.h"
#include "simulate/run.h"
#include "simulate/validation.h"
#include "ui/scripted_ui.h"

namespace {

using namespace karvane;
using namespace karvane::simulate;

// Counts the balancing passes: each pass that leaves a mesh open shows its attempt number.
class CountingUi : public ui::ScriptedUserInterface {
public:
    long long Passes = 0;
    void ProgressAttempt(const std::string& text) override {
        if (!text.empty()) ++Passes;
    }
};

// A generated mine and its rows as generated, to put back before each measured run.
struct Mine {
    std::unique_ptr<Model> M = std::make_unique<Model>();
    std::vector<Airway> Rows;
    std::int32_t Count = 0, LastNo = 0;
    CountingUi Ui;

    explicit Mine(std::int32_t airways) {
        SetBuiltInSettings(*M);
        minegen::MineRequest plan;
        plan.Airways = airways;
        plan.Seed = 1;
        plan.Boosters = 1;
        minegen::GenerateMine(*M, plan);
        M->ShowProgress = 0;
        M->Set.MaxIter = 5000;
        Ui.DefaultAnswer = ui::Answer::No;
        Count = M->AirwayCount;
        LastNo = M->Set.LastAirwayNo;
        Rows.assign(M->Airways.begin(), M->Airways.begin() + Count + 1);
    }
    void Restore() {
        std::copy(Rows.begin(), Rows.end(), M->Airways.begin());
        M->AirwayCount = Count;
        M->Set.LastAirwayNo = LastNo;
        M->ErrorList.clear();
        M->SimFail = RunResult::Good;
        M->SimMode = RunMode::Normal;
        M->StopFlag = StopRequest::Go;
    }
    // Up to the meshes, as a run leaves them for balancing.
    void CheckAndMesh() {
        Restore();
        CheckFanCurves(*M, Ui);
        CheckNetwork(*M, Ui);
        PrepareMeshOrder(*M);
        BuildMeshes(*M, Ui);
        BuildWorkingCurves(*M, Ui);
    }
    // Entries of the meshes that balancing works on (fixed meshes are held, not worked).
    long long OpenMeshEntries() const {
        const RunState& run = M->Run;
        long long n = 0;
        for (std::int32_t m = 1; m <= run.NumMeshes; ++m)
            if (run.MeshList[run.MeshStart[m]] > 0) n += run.MeshStart[m + 1] - run.MeshStart[m];
        return n;
    }
};

// One mine per size for the whole program: generating the largest takes longer than a stage.
Mine& MineOf(std::int64_t size) {
    static std::map<std::int64_t, std::unique_ptr<Mine>> mines;
    auto& m = mines[size];
    if (!m) m = std::make_unique<Mine>(static_cast<std::int32_t>(size));
    return *m;
}

void Checking(benchmark::State& state) {
    Mine& mine = MineOf(state.range(0));
    long long allocs = 0;
    for (auto _ : state) {
        state.PauseTiming();
        mine.Restore();
        const long long before = karvane::bench::allocations;
        state.ResumeTiming();
        CheckNetwork(*mine.M, mine.Ui);
        allocs = karvane::bench::allocations - before;
    }
    state.counters["allocs"] = static_cast<double>(allocs);
}

void Meshing(benchmark::State& state) {
    Mine& mine = MineOf(state.range(0));
    mine.Restore();
    CheckNetwork(*mine.M, mine.Ui);
    const std::int32_t n = mine.M->AirwayCount;
    const std::vector<std::int16_t> entry(mine.M->Run.EntryNodeNo.begin(), mine.M->Run.EntryNodeNo.begin() + n + 1);
    const std::vector<std::int16_t> exit(mine.M->Run.ExitNodeNo.begin(), mine.M->Run.ExitNodeNo.begin() + n + 1);
    long long allocs = 0;
    for (auto _ : state) {
        state.PauseTiming();
        std::copy(entry.begin(), entry.end(), mine.M->Run.EntryNodeNo.begin());
        std::copy(exit.begin(), exit.end(), mine.M->Run.ExitNodeNo.begin());
        const long long before = karvane::bench::allocations;
        state.ResumeTiming();
        PrepareMeshOrder(*mine.M);
        BuildMeshes(*mine.M, mine.Ui);
        allocs = karvane::bench::allocations - before;
    }
    state.counters["meshes"] = mine.M->Run.NumMeshes;
    state.counters["entries"] = static_cast<double>(mine.M->Run.MeshStart[mine.M->Run.NumMeshes + 1] - 1);
    state.counters["allocs"] = static_cast<double>(allocs);
}

// The balancing stage by the method of the second argument.
void BalanceBy(Model& m, ui::UserInterface& ui, std::int64_t newton) {
    if (newton) BalanceFlowsNewton(m, ui);
    else BalanceFlows(m, ui);
}

// Balancing from still air (every flow seeded from the chords' flows of the generated mine), or
// with the third argument 1 from the flows of a finished balance.
void Balancing(benchmark::State& state) {
    Mine& mine = MineOf(state.range(0));
    const std::int64_t newton = state.range(1), stored = state.range(2);
    mine.CheckAndMesh();
    const std::int32_t n = mine.M->AirwayCount;
    std::vector<float> seed(static_cast<std::size_t>(n) + 1);
    if (stored) BalanceBy(*mine.M, mine.Ui, newton);
    for (std::int32_t i = 1; i <= n; ++i) seed[i] = mine.M->Airways[i].Quantity;
    const long long entries = mine.OpenMeshEntries();
    long long passes = 0, allocs = 0;
    for (auto _ : state) {
        state.PauseTiming();
        for (std::int32_t i = 1; i <= n; ++i) mine.M->Airways[i].Quantity = seed[i];
        mine.Ui.Passes = 0;
        const long long before = karvane::bench::allocations;
        state.ResumeTiming();
        BalanceBy(*mine.M, mine.Ui, newton);
        state.PauseTiming();
        allocs = karvane::bench::allocations - before;
        passes += mine.Ui.Passes + 1; // the last pass, in which nothing was open
        state.ResumeTiming();
    }
    state.counters["passes"] = static_cast<double>(passes) / static_cast<double>(state.iterations());
    state.counters["mesh_entries/s"] =
        benchmark::Counter(static_cast<double>(passes * entries), benchmark::Counter::kIsRate);
    state.counters["allocs"] = static_cast<double>(allocs);
    if (newton && !stored) {
        // The largest difference of Newton's flows from those Hardy Cross gives the same mine.
        std::vector<float> q(static_cast<std::size_t>(n) + 1);
        for (std::int32_t i = 1; i <= n; ++i) q[i] = mine.M->Airways[i].Quantity;
        for (std::int32_t i = 1; i <= n; ++i) mine.M->Airways[i].Quantity = seed[i];
        BalanceFlows(*mine.M, mine.Ui);
        double worst = 0;
        for (std::int32_t i = 1; i <= n; ++i)
            worst = std::max(worst, static_cast<double>(std::fabs(mine.M->Airways[i].Quantity - q[i])));
        state.counters["max_flow_difference"] = worst;
    }
}

void Pressures(benchmark::State& state) {
    Mine& mine = MineOf(state.range(0));
    mine.CheckAndMesh();
    BalanceFlows(*mine.M, mine.Ui);
    long long allocs = 0;
    for (auto _ : state) {
        const long long before = karvane::bench::allocations;
        CloseBalance(*mine.M);
        StoreAirwayPressures(*mine.M);
        ResolveNodePressures(*mine.M, mine.Ui);
        BuildNeighbourLists(*mine.M);
        allocs = karvane::bench::allocations - before;
    }
    state.counters["allocs"] = static_cast<double>(allocs);
}

void WholeRunFromStillAir(benchmark::State& state) {
    Mine& mine = MineOf(state.range(0));
    mine.M->Set.Solver = static_cast<std::int16_t>(state.range(1));
    long long passes = 0;
    for (auto _ : state) {
        state.PauseTiming();
        mine.Restore();
        mine.Ui.Passes = 0;
        state.ResumeTiming();
        RunAirflow(*mine.M, mine.Ui);
        passes += mine.Ui.Passes + 1;
    }
    state.counters["passes"] = static_cast<double>(passes) / static_cast<double>(state.iterations());
    if (mine.M->SimFail != RunResult::Good) state.SkipWithError("the generated mine did not run cleanly");
}

// The everyday case: a run again after a small change, from the flows of the last run.
void RunAgainOverBalancedFlows(benchmark::State& state) {
    Mine& mine = MineOf(state.range(0));
    mine.M->Set.Solver = static_cast<std::int16_t>(state.range(1));
    mine.Restore();
    RunAirflow(*mine.M, mine.Ui);
    long long passes = 0, allocs = 0;
    for (auto _ : state) {
        mine.Ui.Passes = 0;
        const long long before = karvane::bench::allocations;
        RunAirflow(*mine.M, mine.Ui);
        allocs = karvane::bench::allocations - before;
        passes += mine.Ui.Passes + 1;
    }
    state.counters["passes"] = static_cast<double>(passes) / static_cast<double>(state.iterations());
    state.counters["allocs"] = static_cast<double>(allocs);
}

} // namespace

BENCHMARK(Checking)->Arg(1000)->Arg(10000)->Arg(30000)->Unit(benchmark::kMillisecond);
BENCHMARK(Meshing)->Arg(1000)->Arg(10000)->Arg(30000)->Unit(benchmark::kMillisecond);
BENCHMARK(Balancing)
    ->ArgNames({"airways", "newton", "stored"})
    ->ArgsProduct({{1000, 10000, 30000}, {0, 1}, {0, 1}})
    ->Unit(benchmark::kMillisecond);
BENCHMARK(Pressures)->Arg(1000)->Arg(10000)->Arg(30000)->Unit(benchmark::kMillisecond);
BENCHMARK(WholeRunFromStillAir)
    ->ArgNames({"airways", "newton"})
    ->ArgsProduct({{1000, 10000, 30000}, {0, 1}})
    ->Unit(benchmark::kMillisecond);
BENCHMARK(RunAgainOverBalancedFlows)
    ->ArgNames({"airways", "newton"})
    ->ArgsProduct({{1000, 10000, 30000}, {0, 1}})
    ->Unit(benchmark::kMillisecond);

BENCHMARK_MAIN();
