// Generated mines at the generator's own defaults, at the sizes the benchmarks use: each one
// runs cleanly within the mesh store (20 x MaxAirways entries), holds its fixed flows, and a
// run again over its balanced flows allocates nothing. Every heap allocation of this program
// is counted for the last check.
#include <gtest/gtest.h>

#include <cmath>
#include <memory>
#include <utility>
#include <vector>

#include "bench/allocation_counter.h"
#include "generate/mine_generator.h"
#include "model/builtin_settings.h"
#include "simulate/run.h"
#include "ui/scripted_ui.h"

namespace {

using namespace karvane;

struct DefaultMine {
    std::unique_ptr<Model> M = std::make_unique<Model>();
    minegen::MineLayout Layout;
    explicit DefaultMine(std::int32_t airways) {
        SetBuiltInSettings(*M);
        minegen::MineRequest request;
        request.Airways = airways;
        Layout = minegen::GenerateMine(*M, request);
        M->ShowProgress = 0;
    }
};

TEST(DefaultMines, RunCleanlyWithinTheMeshStore) {
    for (std::int32_t size : {1000, 10000, 30000}) {
        SCOPED_TRACE(size);
        DefaultMine mine(size);
        Model& m = *mine.M;
        ASSERT_EQ(m.AirwayCount, size);
        ASSERT_FALSE(mine.Layout.FixedFlowRows.empty());
        std::vector<std::pair<std::int32_t, float>> fixed; // airway number, quantity
        for (std::int32_t r : mine.Layout.FixedFlowRows) {
            EXPECT_TRUE(m.Airways[r].Has(bc::FixedFlow));
            fixed.emplace_back(m.Airways[r].AirwayNo, m.Airways[r].Quantity);
        }
        // Wide grids cross in the middle, so that the loops through them stay short.
        EXPECT_EQ(mine.Layout.MainCrosscutColumn >= 0, mine.Layout.GridColumns >= 16);

        ui::ScriptedUserInterface ui;
        ui.DefaultAnswer = ui::Answer::No;
        m.Set.MaxIter = 5000; // from still air
        simulate::RunAirflow(m, ui);
        // Not a word: no mesh store message, no convergence question, no fault.
        ASSERT_TRUE(ui.Transcript.empty()) << ui.Transcript.front().Title << ": " << ui.Transcript.front().Text;
        EXPECT_EQ(m.SimFail, RunResult::Good);
        EXPECT_NE(m.SimValid, Validity::NotValid);
        EXPECT_LE(m.Run.MeshStart[m.Run.NumMeshes + 1] - 1, MeshListCapacity / 2)
            << "the mine should leave the mesh store room to grow";

        // The fixed flows kept their quantity (a run may have turned the rows round).
        for (const auto& [number, quantity] : fixed) {
            bool found = false;
            for (std::int32_t r = 1; r <= m.AirwayCount; ++r) {
                if (m.Airways[r].AirwayNo != number) continue;
                found = true;
                EXPECT_FLOAT_EQ(std::fabs(m.Airways[r].Quantity), quantity) << number;
            }
            EXPECT_TRUE(found) << number;
        }
    }
}

// A run again over rows out of key order, as after an edit, allocates nothing: the sort and
// every check work in the run state's own columns, and Newton's method keeps its work store and
// factorisation order for the same network shape, from still air too.
TEST(DefaultMines, ARunAgainAllocatesNothing) {
    for (const std::int16_t solver : {SolverHardyCross, SolverNewton}) {
        SCOPED_TRACE(solver);
        DefaultMine mine(10000);
        Model& m = *mine.M;
        m.Set.MaxIter = 5000;
        m.Set.Solver = solver;
        ui::ScriptedUserInterface ui;
        ui.DefaultAnswer = ui::Answer::No;
        simulate::RunAirflow(m, ui); // turns airways to their flow: the next run sorts again
        ASSERT_EQ(m.SimFail, RunResult::Good);
        std::swap(m.Airways[1], m.Airways[m.AirwayCount]);
        std::swap(m.Airways[2], m.Airways[m.AirwayCount / 2]);
        for (int run = 0; run < 2; ++run) {
            if (run == 1 && solver == SolverNewton)
                for (std::int32_t r = 1; r <= m.AirwayCount; ++r)
                    if (!m.Airways[r].Has(bc::FixedFlow)) m.Airways[r].Quantity = 0;
            const long long before = karvane::bench::allocations;
            simulate::RunAirflow(m, ui);
            EXPECT_EQ(karvane::bench::allocations - before, 0) << "run " << run;
            EXPECT_EQ(m.SimFail, RunResult::Good);
        }
        EXPECT_TRUE(ui.Transcript.empty());
    }
}

} // namespace
