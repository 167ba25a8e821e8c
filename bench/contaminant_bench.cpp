// The contaminant spread and the sourcing on generated mines of 1,000, 10,000 and 30,000
// airways, balanced once before measuring: a source at an intake for the spread; smoke and
// clear pins for the sourcing. Counters give the rows settled, the reach rounds and the
// settling passes of a spread, and the rows in each state of a sourcing.
#include <benchmark/benchmark.h>

#include <map>
#include <memory>

#include "contaminant/sourcing.h"
#include "contaminant/spread.h"
#include "generate/mine_generator.h"
#include "model/builtin_settings.h"
#include "simulate/run.h"
#include "ui/scripted_ui.h"

namespace {

using namespace karvane;

// Counts the reach rounds and settling passes by the boxes they show.
class CountingUi : public ui::ScriptedUserInterface {
public:
    long long Rounds = 0, Passes = 0;
    void ProgressBox(const std::string& box, const std::string&) override {
        if (box == "TxtItt") ++Rounds;
        if (box == "TxtErr") ++Passes;
    }
};

// A generated mine, balanced, with one source at the first intake from the surface and report
// pins: smoke on an airway two thirds down the table, clear on one a third down.
struct Mine {
    std::unique_ptr<Model> M = std::make_unique<Model>();
    CountingUi Ui;

    explicit Mine(std::int32_t airways) {
        SetBuiltInSettings(*M);
        minegen::MineRequest request;
        request.Airways = airways;
        request.Seed = 1;
        request.Boosters = 1;
        if (airways >= 30000) request.Levels = 25; // the mesh store's limit, as the airflow benchmark
        minegen::GenerateMine(*M, request);
        M->ShowProgress = 0;
        M->Set.MaxIter = 5000;
        Ui.DefaultAnswer = ui::Answer::No;
        simulate::RunAirflow(*M, Ui);
        for (std::int32_t r = 1; r <= M->AirwayCount; ++r) {
            Airway& a = M->Airways[r];
            if (a.EntryKey == SurfaceKey && a.FanNumber == 0 && a.Quantity > 0) {
                a.BranchCode |= bc::ContaminantSource;
                a.Contaminant = 100;
                break;
            }
        }
        Pin(M->AirwayCount * 2 / 3, contaminant::SmokePin);
        Pin(M->AirwayCount / 3, contaminant::ClearPin);
    }
    // The pin goes on the first airway from `row` on that carries a real flow underground:
    // the grids of drives hold many airways of a few litres a second.
    void Pin(std::int32_t row, std::int16_t pin) {
        for (std::int32_t r = row; r <= M->AirwayCount; ++r) {
            Airway& a = M->Airways[r];
            if (a.Quantity > 1 && a.EntryKey != SurfaceKey && a.ExitKey != SurfaceKey) {
                a.Gas1 = pin;
                return;
            }
        }
    }
};

Mine& MineOf(std::int64_t size) {
    static std::map<std::int64_t, std::unique_ptr<Mine>> mines;
    auto& m = mines[size];
    if (!m) m = std::make_unique<Mine>(static_cast<std::int32_t>(size));
    return *m;
}

void Spread(benchmark::State& state) {
    Mine& mine = MineOf(state.range(0));
    if (mine.M->SimValid == Validity::NotValid) {
        state.SkipWithError("the mine did not balance");
        return;
    }
    for (auto _ : state) {
        mine.Ui.Rounds = mine.Ui.Passes = 0;
        contaminant::RunContaminantSpread(*mine.M, mine.Ui);
    }
    state.counters["settled_rows"] = mine.M->Smoke.SpreadCount;
    state.counters["reach_rounds"] = static_cast<double>(mine.Ui.Rounds);
    state.counters["settle_passes"] = static_cast<double>(mine.Ui.Passes - 1); // the first box is the start
}

void Sourcing(benchmark::State& state) {
    Mine& mine = MineOf(state.range(0));
    if (mine.M->SimValid == Validity::NotValid) {
        state.SkipWithError("the mine did not balance");
        return;
    }
    for (auto _ : state) contaminant::RunSourcing(*mine.M, mine.Ui);
    int states[8] = {};
    for (std::int32_t r = 1; r <= mine.M->AirwayCount; ++r) ++states[mine.M->Airways[r].Gas2 & 7];
    state.counters["smoke"] = states[contaminant::SmokeState];
    state.counters["potential"] = states[contaminant::PotentialSourceState];
    state.counters["clear"] = states[contaminant::ClearState];
}

BENCHMARK(Spread)->Arg(1000)->Arg(10000)->Arg(30000)->Unit(benchmark::kMillisecond);
BENCHMARK(Sourcing)->Arg(1000)->Arg(10000)->Arg(30000)->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
