// The Troubleshoot menu: unnecessary bulkheads found and removed, restrictive fans, duplicate
// airways, non-converging airways, and re-seeding, each with its exact messages.
#include <gtest/gtest.h>

#include "sim_networks.h"
#include "simulate/troubleshoot.h"

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

TEST(Troubleshoot, FindUnnecessaryBulkheads) {
    auto m = SeriesPair(false);
    const float before = m->Airways[2].Quantity = 12.5f;
    WatchingUi ui;
    RunTroubleshoot(*m, ui, mode::FindBulkheads);
    EXPECT_EQ(ui.Texts("Message"),
              std::vector<std::string>{"CAUTION - Bulkheads are present which MAY restrict meshes formation."});
    EXPECT_EQ(ui.Transcript[0].Title, "Possible meshing problems");
    EXPECT_EQ(m->SimFail, 1);
    EXPECT_EQ(m->SimMode, mode::FindBulkheads);
    ASSERT_EQ(m->ErrorList.size(), 1u);
    EXPECT_EQ(m->ErrorList[0].Text, "BBH not required");
    EXPECT_EQ(AirwayNo(*m, m->ErrorList[0].AirwayNo).Comment, "Bad BBH");
    EXPECT_TRUE(m->Run.ErrorListOpen);
    EXPECT_FALSE(m->RestrictionFlag);
    EXPECT_EQ(AirwayNo(*m, 2).Quantity, before); // no balancing in this mode
    EXPECT_EQ(ui.ProgressPercents.back(), 50);

    auto clean = SeriesPair(false, false);
    WatchingUi quiet;
    RunTroubleshoot(*clean, quiet, mode::FindBulkheads);
    EXPECT_EQ(quiet.Texts("Message"), std::vector<std::string>{"There are NO unnecessary bulkheads."});
    EXPECT_EQ(quiet.Transcript[0].Title, ProgramName);
    EXPECT_EQ(clean->SimFail, 0);
    EXPECT_FALSE(clean->Run.ErrorListOpen);
}

TEST(Troubleshoot, RemoveUnnecessaryBulkheads) {
    const std::string question = "WARNING - This will remove redundant bulkheads from the network.  Continue ?";
    {
        auto m = SeriesPair(false);
        WatchingUi ui;
        ui.Answers = {ui::Answer::Yes};
        RunTroubleshoot(*m, ui, mode::RemoveBulkheads);
        EXPECT_EQ(ui.Texts("Ask"), std::vector<std::string>{question});
        EXPECT_EQ(ui.Transcript[0].Title, "Remove redundant bulkheads");
        EXPECT_EQ(ui.Texts("Message"),
                  std::vector<std::string>{"There were 1 unnecessary bulkheads removed from the network"});
        ASSERT_EQ(m->ErrorList.size(), 1u);
        const Airway& freed = AirwayNo(*m, m->ErrorList[0].AirwayNo);
        EXPECT_EQ(freed.ResType, 0);
        EXPECT_LT(freed.Resistance, 1.0f); // its plain resistance again
        const std::int32_t other = m->ErrorList[0].AirwayNo == 4 ? 5 : 4;
        EXPECT_EQ(AirwayNo(*m, other).ResType, 1);
        EXPECT_FALSE(m->Run.ErrorListOpen); // closed in this mode whatever the result
    }
    {
        auto m = SeriesPair(false);
        WatchingUi ui;
        ui.Answers = {ui::Answer::No};
        RunTroubleshoot(*m, ui, mode::RemoveBulkheads);
        EXPECT_TRUE(ui.Texts("Message").empty());
        EXPECT_EQ(AirwayNo(*m, 4).ResType, 1);
        EXPECT_EQ(AirwayNo(*m, 5).ResType, 1);
        EXPECT_EQ(m->SimFail, 1);
        EXPECT_FALSE(m->Run.ErrorListOpen);
    }
    auto clean = SeriesPair(false, false);
    WatchingUi quiet;
    RunTroubleshoot(*clean, quiet, mode::RemoveBulkheads);
    EXPECT_EQ(quiet.Texts(), std::vector<std::string>{"There were NO unnecessary bulkheads removed."});
    EXPECT_EQ(AirwayNo(*clean, 4).ResType, 1);
}

TEST(Troubleshoot, FindRestrictiveFans) {
    auto m = SeriesPair(true);
    WatchingUi ui;
    RunTroubleshoot(*m, ui, mode::RestrictiveFans);
    EXPECT_EQ(ui.Texts("Message"), std::vector<std::string>{"WARNING - Fans are present which restrict other fans."});
    EXPECT_EQ(ui.Transcript[0].Title, "Possible meshing problems");
    ASSERT_EQ(m->ErrorList.size(), 1u);
    EXPECT_EQ(m->ErrorList[0].Text, "Fan restricted");
    EXPECT_EQ(AirwayNo(*m, m->ErrorList[0].AirwayNo).Comment, "Bad Fan");

    auto clean = SeriesPair(false, false); // the fixed pressure closes its own loop
    WatchingUi quiet;
    RunTroubleshoot(*clean, quiet, mode::RestrictiveFans);
    EXPECT_EQ(quiet.Texts(), std::vector<std::string>{"There are NO fans that are being restricted by other fans."});
}

TEST(Troubleshoot, FindDuplicateAirwaysListsThemWithoutAQuestion) {
    auto m = SeriesPair(false, false);
    AddAirway(*m, Underground(100), Underground(200), 0.7f); // a second A-B
    m->Airways[2].Quantity = 3;
    WatchingUi ui;
    RunTroubleshoot(*m, ui, mode::DuplicateAirways);
    EXPECT_TRUE(ui.Texts("Ask").empty());
    EXPECT_EQ(m->SimFail, 1);
    ASSERT_FALSE(m->ErrorList.empty());
    EXPECT_EQ(m->ErrorList[0].Text, "Duplicate airway");
    EXPECT_TRUE(m->Run.ErrorListOpen);

    // A clean network passes meshing, says nothing and stores no new flows.
    auto clean = SeriesPair(false, false);
    clean->Airways[2].Quantity = 3;
    WatchingUi quiet;
    RunTroubleshoot(*clean, quiet, mode::DuplicateAirways);
    EXPECT_TRUE(quiet.Transcript.empty());
    EXPECT_EQ(clean->SimFail, 0);
    EXPECT_EQ(quiet.ProgressPercents.back(), 50);
    EXPECT_EQ(AirwayNo(*clean, 2).Quantity, 3.0f);
}

TEST(Troubleshoot, NonConvergingAirwaysAreMarkedInTheLastPassAndTheRunStillStores) {
    auto m = SeriesPair(false, false);
    m->Set.MaxIter = 2;
    WatchingUi ui;
    ui.Answers = {ui::Answer::No};
    RunTroubleshoot(*m, ui, mode::NonConverging);
    ASSERT_EQ(ui.Texts("Ask").size(), 1u);
    EXPECT_EQ(m->SimFail, 1);
    EXPECT_EQ(m->SimValid, -1); // a valid result with a list of the airways that moved most
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
    RunTroubleshoot(*good, fine, mode::NonConverging);
    EXPECT_EQ(fine.Texts(), std::vector<std::string>{"There are NO major convergence problems"});
    EXPECT_EQ(good->SimFail, 0);
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
