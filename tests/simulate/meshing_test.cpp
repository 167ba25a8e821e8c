// Meshing: the mesh lists of a small network, the tree checks of every mode, the full store, and
// the weight order with its ties, the forest and the mesh walks against the literal procedures
// on generated networks with many equal weights.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <random>
#include <set>

#include "literal_procedures.h"
#include "sim_networks.h"
#include "simulate/meshing.h"
#include "simulate/validation.h"

namespace karvane::simulate {
namespace {

using simtest::NewModel;

// A network given by node numbers alone, as the checking stage leaves it.
void SetGraph(Model& model, std::int32_t nodes, const std::vector<std::pair<int, int>>& ends,
              const std::vector<float>& resistance) {
    model.AirwayCount = static_cast<std::int32_t>(ends.size());
    model.Run.NumNodes = nodes;
    for (std::size_t i = 0; i < ends.size(); ++i) {
        const auto row = static_cast<std::int32_t>(i + 1);
        Airway& a = model.Airways[row];
        a = Airway{};
        a.BranchCode = bc::Rectangular;
        a.AirwayNo = row;
        a.Resistance = resistance[i];
        model.Run.EntryNodeNo[row] = static_cast<std::int16_t>(ends[i].first);
        model.Run.ExitNodeNo[row] = static_cast<std::int16_t>(ends[i].second);
    }
}

std::vector<std::int16_t> MeshOf(const Model& model, std::int32_t m) {
    const RunState& run = model.Run;
    return {run.MeshList.begin() + run.MeshStart[m], run.MeshList.begin() + run.MeshStart[m + 1]};
}

// A random network with many equal weights and some fans, fixed flows and blocked airways.
void RandomGraph(Model& model, std::mt19937& rng, std::int32_t nodes, std::int32_t airways) {
    std::uniform_int_distribution<int> node(1, nodes);
    std::uniform_int_distribution<int> weight(1, 6);
    std::uniform_int_distribution<int> kind(0, 19);
    std::vector<std::pair<int, int>> ends;
    std::vector<float> res;
    while (static_cast<std::int32_t>(ends.size()) < airways) {
        const int e = node(rng), x = node(rng);
        if (e == x) continue;
        ends.emplace_back(e, x);
        res.push_back(0.5f * static_cast<float>(weight(rng)));
    }
    SetGraph(model, nodes, ends, res);
    for (std::int32_t row = 1; row <= airways; ++row) {
        Airway& a = model.Airways[row];
        switch (kind(rng)) {
        case 0: a.BranchCode |= bc::FixedFlow; break;
        case 1: a.FanNumber = 1; break;
        case 2: a.Resistance = static_cast<float>(BlockedResValue); break;
        default: break;
        }
    }
}

// The node at each end of a signed mesh entry, in the direction the mesh travels it.
std::pair<int, int> Travel(const Model& model, std::int32_t e, bool first) {
    const std::int32_t a = std::abs(e);
    const int from = std::abs(model.Run.EntryNodeNo[a]), to = std::abs(model.Run.ExitNodeNo[a]);
    return (e > 0 || first) ? std::make_pair(from, to) : std::make_pair(to, from);
}

TEST(Meshes, FixedAndBlockedChordsAreHeldFanChordsBalanceAndAMeshTakesTheShorterStretch) {
    auto model = NewModel();
    // A chain 1-2-3-4 from the root, and chords: 4->2 (on the same way to the root),
    // 4->1 fixed flow, 3->1 blocked, 2->4 with a fan.
    SetGraph(*model, 4, {{1, 2}, {2, 3}, {3, 4}, {4, 2}, {4, 1}, {3, 1}, {2, 4}},
             {0.1f, 0.1f, 0.1f, 5.0f, 5.0f, 5.0f, 5.0f});
    model->Airways[5].BranchCode |= bc::FixedFlow;
    model->Airways[6].Resistance = static_cast<float>(BlockedResValue);
    model->Airways[7].FanNumber = 1;
    ui::ScriptedUserInterface ui;
    PrepareMeshOrder(*model);
    BuildMeshes(*model, ui);
    ASSERT_EQ(model->SimFail, RunResult::Good);
    ASSERT_EQ(model->Run.NumMeshes, 4);
    EXPECT_EQ(MeshOf(*model, 1), (std::vector<std::int16_t>{4, 2, 3}));     // only the stretch 2..4
    EXPECT_EQ(MeshOf(*model, 2), (std::vector<std::int16_t>{-5, 1, 2, 3})); // fixed flow: held
    EXPECT_EQ(MeshOf(*model, 3), (std::vector<std::int16_t>{-6, 1, 2}));    // blocked: held
    EXPECT_EQ(MeshOf(*model, 4), (std::vector<std::int16_t>{7, -3, -2}));   // fan: balances
    EXPECT_TRUE(ui.Transcript.empty());
}

// The forest of the network in the model, in the given run mode, from a clean error list.
void ForestInMode(Model& model, RunMode mode) {
    model.SimMode = mode;
    model.SimFail = RunResult::Good;
    model.RestrictionFlag = false;
    model.ErrorList.clear();
    PrepareMeshOrder(model);
    BuildForest(model);
}

TEST(Forest, TreeChecksOfEveryMode) {
    // A fixed flow that is the only way to node 3 is reported in any mode.
    auto model = NewModel();
    for (RunMode mode : {RunMode::Normal, RunMode::FindBulkheads, RunMode::RemoveBulkheads,
                         RunMode::FindRestrictiveFans, RunMode::FindNonConverging}) {
        SetGraph(*model, 3, {{1, 2}, {2, 1}, {2, 3}, {3, 2}}, {0.1f, 0.1f, 1.0f, 1.0f});
        model->Airways[3].BranchCode |= bc::FixedFlow;
        model->Airways[4].ResType = 1;
        model->Airways[4].Resistance = static_cast<float>(BlockedResValue);
        ForestInMode(*model, mode);
        ASSERT_FALSE(model->ErrorList.empty()) << static_cast<int>(mode);
        EXPECT_EQ(model->ErrorList[0].Text, "FIX restricting flow");
        EXPECT_EQ(model->Airways[3].Comment, "Bad Fix");
        EXPECT_FALSE(model->Airways[3].Has(bc::ErrorMark)) << static_cast<int>(mode); // listed, not marked
        EXPECT_EQ(model->SimFail, RunResult::Failed);
        // The bulkhead closes the loop as a chord, so nothing is said of it.
        EXPECT_EQ(model->ErrorList.size(), 1u) << static_cast<int>(mode);
    }

    // Two bulkheads in series: the first in the order goes into the tree and is reported in
    // the bulkhead modes only; a fan in the tree is reported in FindRestrictiveFans only.
    for (RunMode mode :
         {RunMode::Normal, RunMode::FindBulkheads, RunMode::RemoveBulkheads, RunMode::FindRestrictiveFans}) {
        SetGraph(*model, 4, {{1, 2}, {3, 1}, {2, 4}, {4, 3}, {2, 3}}, {0.1f, 0.1f, 0, 0, 0.5f});
        for (int r : {3, 4}) {
            model->Airways[r].ResType = 1;
            model->Airways[r].Resistance = static_cast<float>(BlockedResValue);
        }
        ForestInMode(*model, mode);
        if (mode == RunMode::FindBulkheads || mode == RunMode::RemoveBulkheads) {
            ASSERT_EQ(model->ErrorList.size(), 1u);
            EXPECT_EQ(model->ErrorList[0].AirwayNo, 3);
            EXPECT_EQ(model->ErrorList[0].Text, "BBH not required");
            EXPECT_EQ(model->Airways[3].Comment, "Bad BBH");
            EXPECT_TRUE(model->Airways[3].Has(bc::ErrorMark));
            EXPECT_TRUE(model->RestrictionFlag);
            EXPECT_EQ(model->SimFail, RunResult::Failed);
        } else {
            EXPECT_TRUE(model->ErrorList.empty()) << static_cast<int>(mode);
            EXPECT_EQ(model->SimFail, RunResult::Good);
        }
    }
    SetGraph(*model, 4, {{1, 2}, {3, 1}, {2, 4}, {4, 3}, {2, 3}}, {0.1f, 0.1f, 0, 0, 0.5f});
    model->Airways[3].FanNumber = 1;
    model->Airways[4].FanNumber = 2;
    ForestInMode(*model, RunMode::FindRestrictiveFans);
    ASSERT_EQ(model->ErrorList.size(), 1u);
    EXPECT_EQ(model->ErrorList[0].Text, "Fan restricted");
    EXPECT_EQ(model->Airways[3].Comment, "Bad Fan");
}

TEST(Meshes, AFullStoreIsReportedAndFailsTheRun) {
    const std::string text = "Number of meshes exceed reserved memory setting - please increase the allowable "
                             "branch numbers in the defaults settings !";
    // Too many entries: forty chords round a chain of 20,000 airways.
    auto model = NewModel();
    std::vector<std::pair<int, int>> ends;
    for (int k = 1; k <= 20000; ++k) ends.emplace_back(k, k + 1);
    for (int k = 0; k < 40; ++k) ends.emplace_back(20001, 1);
    SetGraph(*model, 20001, ends, std::vector<float>(ends.size(), 1.0f));
    for (std::size_t r = 20001; r <= ends.size(); ++r) model->Airways[r].Resistance = 2.0f;
    ui::ScriptedUserInterface ui;
    PrepareMeshOrder(*model);
    BuildMeshes(*model, ui);
    EXPECT_EQ(model->SimFail, RunResult::Failed);
    ASSERT_EQ(ui.Transcript.size(), 1u);
    EXPECT_EQ(ui.Transcript[0].Title, "meshes Error");
    EXPECT_EQ(ui.Transcript[0].Text, text);

    // Many short meshes fit, up to one per airway: 20,000 chords between two nodes.
    ends.assign(20001, {1, 2});
    SetGraph(*model, 2, ends, std::vector<float>(ends.size(), 1.0f));
    model->SimFail = RunResult::Good;
    ui.Transcript.clear();
    PrepareMeshOrder(*model);
    BuildMeshes(*model, ui);
    EXPECT_EQ(model->SimFail, RunResult::Good);
    EXPECT_TRUE(ui.Transcript.empty());
    EXPECT_EQ(model->Run.NumMeshes, 20000);
    EXPECT_EQ(MeshOf(*model, 20000), (std::vector<std::int16_t>{20001, -1}));
}

// Every non-tree airway gives exactly one mesh, closed round its loop; the tree spans every
// node that an airway touches; and the forest, the order and the meshes equal the literal
// procedures'.
TEST(Meshes, FastForestAndMeshWalksEqualTheLiteralProceduresOnGeneratedNetworks) {
    auto model = NewModel();
    ui::ScriptedUserInterface ui;
    std::mt19937 rng(20261122);
    for (int round = 0; round < 60; ++round) {
        const std::int32_t nodes = 2 + static_cast<std::int32_t>(rng() % 400);
        const std::int32_t airways = nodes + static_cast<std::int32_t>(rng() % (2 * nodes + 1));
        RandomGraph(*model, rng, nodes, airways);
        model->SimMode = RunMode::Normal;
        model->SimFail = RunResult::Good;
        model->ErrorList.clear();
        PrepareMeshOrder(*model);
        const auto order = oracle::SortOrder(*model);
        for (std::int32_t p = 1; p <= airways; ++p) ASSERT_EQ(model->Run.SortOrder[p], order[p]) << round;
        const auto forest = oracle::Forest(*model, order);
        const auto meshes = oracle::Meshes(forest, airways);
        BuildMeshes(*model, ui);
        ASSERT_TRUE(ui.Transcript.empty());

        const RunState& run = model->Run;
        for (std::int32_t k = 1; k <= nodes; ++k) {
            ASSERT_EQ(run.NodeParent[k], forest.NodeParent[k]) << round << " node " << k;
            ASSERT_EQ(run.NodeComp[k], forest.NodeComp[k]) << round << " node " << k;
        }
        std::int32_t chords = 0;
        std::set<int> touched;
        for (std::int32_t a = 1; a <= airways; ++a) {
            ASSERT_EQ(run.EntryNodeNo[a], forest.EntryNodeNo[a]);
            ASSERT_EQ(run.ExitNodeNo[a], forest.ExitNodeNo[a]);
            if (run.EntryNodeNo[a] < 0) ++chords;
            touched.insert(std::abs(run.EntryNodeNo[a]));
            touched.insert(std::abs(run.ExitNodeNo[a]));
        }
        ASSERT_EQ(run.NumMeshes + 1, static_cast<std::int32_t>(meshes.MeshStart.size()) - 1);
        for (std::int32_t m = 1; m <= run.NumMeshes + 1; ++m) ASSERT_EQ(run.MeshStart[m], meshes.MeshStart[m]);
        for (std::int32_t pos = 1; pos < run.MeshStart[run.NumMeshes + 1]; ++pos)
            ASSERT_EQ(run.MeshList[pos], meshes.MeshList[pos]);

        // One mesh per chord, in chord order, each a closed loop of tree airways.
        EXPECT_EQ(run.NumMeshes, chords);
        std::int32_t lastChord = 0;
        std::set<int> trees;
        for (std::int32_t m = 1; m <= run.NumMeshes; ++m) {
            const auto mesh = MeshOf(*model, m);
            const std::int32_t chord = std::abs(mesh[0]);
            EXPECT_GT(chord, lastChord);
            lastChord = chord;
            EXPECT_EQ(mesh[0] < 0, run.ExitNodeNo[chord] < 0);
            int at = Travel(*model, mesh[0], true).second;
            for (std::size_t i = 1; i < mesh.size(); ++i) {
                EXPECT_GT(run.EntryNodeNo[std::abs(mesh[i])], 0); // a tree airway
                const auto [from, to] = Travel(*model, mesh[i], false);
                ASSERT_EQ(from, at) << "mesh " << m << " breaks at entry " << i;
                at = to;
            }
            EXPECT_EQ(at, Travel(*model, mesh[0], true).first) << "mesh " << m << " is not closed";
        }
        // Spanning: every node an airway touches lies in a tree, and the tree airways number
        // the nodes less the trees.
        for (int k : touched) {
            EXPECT_NE(run.NodeComp[k], 0);
            trees.insert(run.NodeComp[k]);
        }
        EXPECT_EQ(airways - chords, static_cast<std::int32_t>(touched.size() - trees.size()));
    }
}

} // namespace
} // namespace karvane::simulate
