// The engine on generated networks: Kirchhoff's laws after a run on synthetic mines (flow in
// equals flow out at every junction, and pressures agree round every loop), and the fast node
// pressure flood and neighbour lists equal to the literal procedures.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>
#include <set>

#include "literal_procedures.h"
#include "model/node_keys.h"
#include "sim_networks.h"
#include "simulate/meshing.h"
#include "simulate/pressures.h"
#include "simulate/validation.h"

namespace karvane::simulate {
namespace {

TEST(GeneratedMines, KirchhoffsLawsHoldAfterARun) {
    for (const auto& [size, seed] : {std::pair{400, 1}, std::pair{1500, 2}, std::pair{3000, 3}}) {
        SCOPED_TRACE(size);
        auto m = simtest::GeneratedMine(size, seed);
        ui::ScriptedUserInterface ui;
        ui.DefaultAnswer = ui::Answer::No;
        RunAirflow(*m, ui);
        ASSERT_EQ(m->SimFail, RunResult::Good);
        ASSERT_TRUE(ui.Transcript.empty()) << ui.Transcript.front().Text;

        simtest::ExpectKirchhoff(*m);
    }
}

// Rows over a small pool of nodes and the surface, sorted by key as the checking stage leaves
// them: many junctions, rows no path reaches, and surface rows that meet each other. With
// `distinct`, no two rows join the same two nodes the same way and none joins a node to itself.
void RandomKeyedRows(Model& m, std::mt19937& rng, std::int32_t rows, int nodes, int surfaceShare, bool distinct) {
    std::uniform_int_distribution<int> node(1, nodes), pct(1, 100);
    std::set<std::pair<Fixed4, Fixed4>> used;
    auto key = [&] { return pct(rng) <= surfaceShare ? SurfaceKey : Fixed4{1000} * node(rng); };
    m.AirwayCount = 0;
    for (int tries = 0; m.AirwayCount < rows && tries < 20 * rows; ++tries) {
        const Fixed4 entry = key(), exit = key();
        if (distinct && (entry == exit || !used.insert({entry, exit}).second)) continue;
        Airway& a = m.Airways[++m.AirwayCount];
        a = Airway{};
        a.BranchCode = bc::Rectangular;
        a.ResType = CustomPreset; // kept through the resistance refresh of the sort
        a.AirwayNo = m.AirwayCount;
        a.EntryKey = entry;
        a.ExitKey = exit;
        a.Quantity = static_cast<float>(pct(rng)) / 7.0f;
        a.Resistance = static_cast<float>(pct(rng)) / 100.0f;
        a.Pressure = -a.Resistance * a.Quantity * a.Quantity;
        if (pct(rng) <= 5) a.FanNumber = -1, a.Pressure = 300;
    }
    SortAirwayRows(m);
}

TEST(GeneratedNetworks, NodePressureFloodEqualsRepeatedPasses) {
    auto m = simtest::NewModel();
    ui::ScriptedUserInterface ui;
    std::mt19937 rng(7);
    for (int round = 0; round < 40; ++round) {
        RandomKeyedRows(*m, rng, 50 + static_cast<std::int32_t>(rng() % 1500), 10 + static_cast<int>(rng() % 400),
                        round % 5 == 0 ? 0 : 3, true);
        const std::int32_t rows = m->AirwayCount;
        std::vector<float> drop(static_cast<std::size_t>(rows) + 1);
        for (std::int32_t r = 1; r <= rows; ++r) drop[r] = RowDrop(*m, r);
        const auto expected = oracle::Flood(*m, drop);
        ResolveNodePressures(*m, ui);
        ASSERT_TRUE(ui.Transcript.empty());
        for (std::int32_t r = 1; r <= rows; ++r) {
            ASSERT_EQ(m->Airways[r].ToNodeP, expected.To[r]) << round << " row " << r;
            ASSERT_EQ(m->Airways[r].FromNodeP, expected.From[r]) << round << " row " << r;
        }
    }
}

TEST(GeneratedNetworks, NeighbourListsEqualTheDoubleScanAndGrowPastTheirStore) {
    auto m = simtest::NewModel();
    std::mt19937 rng(11);
    auto check = [&](int round) {
        BuildNeighbourLists(*m);
        const auto expected = oracle::NeighbourLists(*m);
        // Every upstream range stands before every downstream range.
        std::int32_t lastUp = 0;
        for (std::int32_t r = 1; r <= m->AirwayCount; ++r) {
            const auto up = Upstream(*m, r), down = Downstream(*m, r);
            ASSERT_TRUE(std::equal(up.begin(), up.end(), expected.Up[r].begin(), expected.Up[r].end()))
                << round << " row " << r;
            ASSERT_TRUE(std::equal(down.begin(), down.end(), expected.Down[r].begin(), expected.Down[r].end()))
                << round << " row " << r;
            lastUp = std::max(lastUp, m->Run.NodeLink[4 * r + UpLast]);
        }
        for (std::int32_t r = 1; r <= m->AirwayCount; ++r) {
            if (!Downstream(*m, r).empty()) {
                ASSERT_GT(m->Run.NodeLink[4 * r + DownFirst], lastUp);
            }
        }
    };
    for (int round = 0; round < 30; ++round) {
        RandomKeyedRows(*m, rng, 20 + static_cast<std::int32_t>(rng() % 800), 5 + static_cast<int>(rng() % 200),
                        static_cast<int>(rng() % 30), false);
        // Turned rows break the key order, as CheckFixedDirections leaves it.
        for (std::int32_t r = 1; r <= m->AirwayCount; r += 7) std::swap(m->Airways[r].EntryKey, m->Airways[r].ExitKey);
        check(round);
    }
    // 450 rows into the surface and 450 out of it: 202,500 neighbours, more than the store.
    m->AirwayCount = 900;
    for (std::int32_t r = 1; r <= 900; ++r) {
        m->Airways[r].EntryKey = r <= 450 ? SurfaceKey : 5000 + r;
        m->Airways[r].ExitKey = r <= 450 ? 5000 + r + 450 : SurfaceKey;
    }
    check(-1);
    EXPECT_EQ(Downstream(*m, 900).size(), 450u);
    EXPECT_TRUE(Upstream(*m, 0).empty());
    EXPECT_GT(m->Run.NodeLinkList.size(), static_cast<std::size_t>(NodeLinkCapacity + 1));
}

} // namespace
} // namespace karvane::simulate
