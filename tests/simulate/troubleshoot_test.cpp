// The Troubleshoot menu: unnecessary bulkheads found and removed, restrictive fans, duplicate
// airways, non-converging airways, and re-seeding, each with its exact messages.
#include <gtest/gtest.h>

#include "sim_networks.h"
#include "simulate/troubleshoot.h"
#include "support/golden.h"

namespace karvane::simulate {
namespace {

using namespace simtest;

// Intake S1-A, drive A-B, exhaust B-S2 driven by a fixed pressure, and a dead end A-D-B whose
// two airways are bulkheads (or fans): one of the two is enough to stop the air.
std::unique_ptr<Model> SeriesPair(bool fans, bool pair = true) {
    auto m = NewModel();
    SetStraightFan(*m, 1, 1000, 10, 0, 10);
    const Point s1 = Surface(100), a = Underground(100), b = Underground(200), d = Underground(150, 50),
                s2 = Surface(200);
    AddAirway(*m, s1, a, 0.01f);
    AddAirway(*m, a, b, 0.5f);
    const std::int32_t exhaust = AddFan(*m, b, s2, 0.01f, -1);
    m->Airways[exhaust].Pressure = 500;
    if (fans) {
        AddFan(*m, a, d, 0.1f, 1);
        AddFan(*m, d, b, 0.1f, 1);
    } else {
        AddBulkhead(*m, a, d);
        if (pair) AddBulkhead(*m, d, b);
        else AddAirway(*m, d, b, 0.5f);
    }
    return m;
}

TEST(Troubleshoot, EachSearchAsRecorded) {
    std::string record;
    const auto search = [&record](Model& m, auto mode, const char* title, std::vector<ui::Answer> answers = {}) {
        WatchingUi ui;
        ui.Answers.assign(answers.begin(), answers.end());
        RunTroubleshoot(m, ui, mode);
        record += std::string("== ") + title + "\n" + RunRecord(m, ui);
    };
    // Unnecessary bulkheads: the pair in series, one enough to stop the air, and no balancing in
    // this mode; a clean network has none.
    auto m = SeriesPair(false);
    m->Airways[2].Quantity = 12.5f;
    search(*m, RunMode::FindBulkheads, "find unnecessary bulkheads");
    EXPECT_FALSE(m->RestrictionFlag);
    search(*SeriesPair(false, false), RunMode::FindBulkheads, "find unnecessary bulkheads, none");
    // Removing them asks first; the error list is closed in this mode whatever the result.
    search(*SeriesPair(false), RunMode::RemoveBulkheads, "remove unnecessary bulkheads", {ui::Answer::Yes});
    search(*SeriesPair(false), RunMode::RemoveBulkheads, "remove unnecessary bulkheads, refused", {ui::Answer::No});
    search(*SeriesPair(false, false), RunMode::RemoveBulkheads, "remove unnecessary bulkheads, none");
    // Fans that restrict other fans; the fixed pressure closes its own loop.
    search(*SeriesPair(true), RunMode::FindRestrictiveFans, "restrictive fans");
    search(*SeriesPair(false, false), RunMode::FindRestrictiveFans, "restrictive fans, none");
    // Duplicate airways are listed without a question; a clean network passes meshing, says
    // nothing and stores no new flows.
    m = SeriesPair(false, false);
    AddAirway(*m, Underground(100), Underground(200), 0.7f); // a second A-B
    m->Airways[2].Quantity = 3;
    search(*m, RunMode::FindDuplicates, "duplicate airways");
    m = SeriesPair(false, false);
    m->Airways[2].Quantity = 3;
    search(*m, RunMode::FindDuplicates, "duplicate airways, none");
    karvane::testing::ExpectGolden("troubleshoot_searches.txt", record);
}

TEST(Troubleshoot, NonConvergingAirwaysAreMarkedInTheLastPassAndTheRunStillStores) {
    auto m = SeriesPair(false, false);
    m->Set.MaxIter = 2;
    WatchingUi ui;
    ui.Answers = {ui::Answer::No};
    RunTroubleshoot(*m, ui, RunMode::FindNonConverging);
    ASSERT_EQ(ui.Texts("Ask").size(), 1u);
    EXPECT_EQ(m->SimFail, RunResult::Failed);
    EXPECT_EQ(m->SimValid, Validity::Valid); // a valid result with a list of the airways that moved most
    ASSERT_FALSE(m->ErrorList.empty());
    for (const auto& e : m->ErrorList) {
        EXPECT_EQ(e.Text, "Converge Error");
        const Airway& a = AirwayNo(*m, e.AirwayNo);
        EXPECT_EQ(a.Comment.substr(0, 9), "Converge ");
        EXPECT_TRUE(a.Has(bc::ErrorMark));
    }
    EXPECT_TRUE(m->Run.ErrorListOpen);
    EXPECT_FALSE(ui.Said("There are NO major convergence problems"));

    MarkNonConverging(*m, 1, 12.34f, ','); // already marked or not, a second mark never comes
    const std::size_t lines = m->ErrorList.size();
    MarkNonConverging(*m, 1, 1.0f, ',');
    EXPECT_EQ(m->ErrorList.size(), lines);
    auto fresh = SeriesPair(false, false);
    MarkNonConverging(*fresh, 2, 12.36f, ',');
    EXPECT_EQ(fresh->Airways[2].Comment, "Converge 12,");
    MarkNonConverging(*fresh, 3, 1.25f, '.');
    EXPECT_EQ(fresh->Airways[3].Comment, "Converge 1.3");

    auto good = SeriesPair(false, false);
    WatchingUi fine;
    RunTroubleshoot(*good, fine, RunMode::FindNonConverging);
    EXPECT_EQ(fine.Texts(), std::vector<std::string>{"There are NO major convergence problems"});
    EXPECT_TRUE(fine.Said("There are NO major convergence problems"));
    EXPECT_TRUE(fine.Texts("Ask").empty());
    EXPECT_EQ(good->SimFail, RunResult::Good);
}

TEST(Troubleshoot, ReseedGivesEveryAirwayButFixedFlowsOneWholeValue) {
    EXPECT_EQ(ReseedPrompt(),
              "Warning !  This will re-seed all airways (except fixed airways) to a specified value.  Subsequent "
              "resimulation will allow Karvane to attempt to rebalance the network.\n\nPlease enter your seed value");
    auto m = NewModel();
    AddAirway(*m, Surface(100), Underground(100), 1);
    AddFixedFlow(*m, Underground(100), Surface(200), 1, 40);
    const std::int32_t fan = AddFan(*m, Underground(100), Surface(300), 1, 1);
    const std::int32_t blocked = AddBulkhead(*m, Underground(100), Surface(400));
    ui::ScriptedUserInterface ui;
    ui.Inputs = {std::string("2.7"), std::string("-2.7"), std::string(""), std::nullopt};
    ReseedAirflows(*m, ui);
    EXPECT_EQ(ui.Transcript[0].Title, "Re-seed airflows");
    EXPECT_EQ(ui.Transcript[0].Text, ReseedPrompt());
    EXPECT_EQ(m->Airways[1].Quantity, 2.0f);
    EXPECT_EQ(m->Airways[2].Quantity, 40.0f);
    EXPECT_EQ(m->Airways[fan].Quantity, 2.0f);
    EXPECT_EQ(m->Airways[blocked].Quantity, 2.0f);
    ReseedAirflows(*m, ui);
    EXPECT_EQ(m->Airways[1].Quantity, -3.0f);
    ReseedAirflows(*m, ui); // empty: nothing
    ReseedAirflows(*m, ui); // cancelled: nothing
    EXPECT_EQ(m->Airways[1].Quantity, -3.0f);
    EXPECT_EQ(m->Airways[2].Quantity, 40.0f);
}

} // namespace
} // namespace karvane::simulate
