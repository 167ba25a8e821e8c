// The Find menu, FindNext with its wrap, the follow tool, and ShowAirway on an airway that no
// level holds.
#include <gtest/gtest.h>

#include "edit/find.h"
#include "model/network_rows.h"
#include "pick_support.h"

namespace karvane::edit {
namespace {

using testing::PickRig;

std::vector<std::int32_t> ShownRows(const PickRig& r) {
    std::vector<std::int32_t> rows;
    for (const auto& [row, fraction] : r.Shown) rows.push_back(row);
    return rows;
}

void BuildNamed(PickRig& r) {
    for (int k = 0; k < 5; ++k) r.S.Add(0, 300 * k, 500, 1000, 300 * k, 500);
    r.S.Row(1).EntryNode = "Shaft A";
    r.S.Row(3).ExitNode = "N-SHAFT";
    r.S.Row(4).BranchName = "Shaft road";
    r.Draw();
}

TEST(Find, PartOfANodeNameFindsInTurnAndWrapsRoundOnce) {
    PickRig r;
    BuildNamed(r);
    r.S.Ui.Inputs.push_back("haft");
    EXPECT_EQ(Finder(r.S.M, r.S.Ds, r.S.Ui, r, find::NodeName), 1);
    EXPECT_EQ(r.S.Ui.Transcript.back().Text, "Enter all or part of node name");
    EXPECT_EQ(r.S.Ui.Transcript.back().Title, "Locate Node");
    EXPECT_EQ(r.S.M.Find.FindText, "HAFT");
    EXPECT_EQ(r.S.M.Find.FinderTick, find::NodeName);
    FindNext(r.S.M, r.S.Ds, r.S.Ui, r);
    FindNext(r.S.M, r.S.Ds, r.S.Ui, r);
    EXPECT_EQ(ShownRows(r), (std::vector<std::int32_t>{1, 3, 1}));
    EXPECT_FLOAT_EQ(r.Shown.back().second, 0);
    EXPECT_TRUE(r.S.Ui.Texts("Message").empty());

    // The tool bar's find again goes on from there.
    r.D.RunToolCommand(cmd::FindNext);
    EXPECT_EQ(r.Host.Commands, (std::vector<int>{cmd::FindNext}));
}

TEST(Find, NothingToFindSaysSoOnceAndACancelledBoxStops) {
    PickRig r;
    BuildNamed(r);
    EXPECT_EQ(FindNext(r.S.M, r.S.Ds, r.S.Ui, r), 0); // no search yet: nothing at all
    EXPECT_TRUE(r.S.Ui.Transcript.empty());

    r.S.Ui.Inputs.push_back("ZZ");
    EXPECT_EQ(Finder(r.S.M, r.S.Ds, r.S.Ui, r, find::BranchName), 0);
    r.S.Ui.Inputs.push_back("0");
    EXPECT_EQ(Finder(r.S.M, r.S.Ds, r.S.Ui, r, find::BranchNumber), 0);
    r.S.Ui.Inputs.push_back(std::nullopt);
    EXPECT_EQ(Finder(r.S.M, r.S.Ds, r.S.Ui, r, find::NodeName), 0);
    // Bytes of another code page find nothing and break nothing.
    r.S.Ui.Inputs.push_back("\xCE\xA9\xE2\x82\xAC?");
    EXPECT_EQ(Finder(r.S.M, r.S.Ds, r.S.Ui, r, find::NodeName), 0);
    EXPECT_EQ(r.S.Ui.Texts("Message"), (std::vector<std::string>{"No branches to find!", "No branches to find!"}));
    EXPECT_EQ(r.S.M.Find.FinderTick, find::NodeName);
    EXPECT_TRUE(r.Shown.empty());

    // An empty network, and a new network clears the search.
    ClearNetwork(r.S.M);
    EXPECT_EQ(r.S.M.Find.FindKind, find::None);
    EXPECT_EQ(Finder(r.S.M, r.S.Ds, r.S.Ui, r, find::Errors), 0);
    EXPECT_EQ(r.S.Ui.Texts("Message").size(), 3u);
}

TEST(Find, EachKindFindsItsAirways) {
    PickRig r;
    BuildNamed(r);
    r.S.Row(2).BranchCode |= bc::ErrorMark;
    r.S.Row(3).Pressure = StalledFanPressure;
    r.S.Row(4).BranchCode |= bc::FixedFlow;
    r.S.Row(5).FanNumber = -1;
    r.S.Row(1).BranchCode |= bc::FixedDirection;
    r.S.Row(5).BranchCode |= bc::FixedDirection; // a fan: not a fixed direction
    r.S.Row(2).Length = 0;
    r.S.Row(5).AirwayNo = 77;
    r.S.Ui.Inputs.push_back("77");
    r.S.Ui.Inputs.push_back("road");
    const struct {
        int Entry;
        std::int32_t Row;
    } cases[] = {{find::Errors, 2},          {find::BadFans, 3},     {find::FixedFlows, 4},   {find::FixedPressure, 5},
                 {find::FixedDirections, 1}, {find::ZeroLengths, 2}, {find::BranchNumber, 5}, {find::BranchName, 4}};
    for (const auto& c : cases) EXPECT_EQ(Finder(r.S.M, r.S.Ds, r.S.Ui, r, c.Entry), c.Row) << FinderCaption(c.Entry);
    EXPECT_EQ(r.S.Ui.Transcript.back().Title, "Locate Branch");
}

TEST(Find, WithEveryLevelRowTakenNoGlobalLevelIsAdded) {
    PickRig r;
    BuildNamed(r);
    r.S.Add(0, 0, 2000, 400, 0, 2000);
    r.S.Row(6).BranchName = "HIGH";
    for (int row = 4; row <= 249; ++row)
        r.S.M.Levels[static_cast<std::size_t>(row)] = {"L" + std::to_string(row), 10, 0};
    r.Draw();
    r.ShowForReal = true;
    r.S.Ui.Inputs.push_back("HIGH");
    EXPECT_EQ(Finder(r.S.M, r.S.Ds, r.S.Ui, r, find::BranchName), 6);
    ASSERT_EQ(r.S.Ui.Texts("Message").size(), 2u);
    EXPECT_EQ(r.S.Ui.Texts("Message")[1], "Level addition failed - too many levels already defined");
    EXPECT_TRUE(r.S.M.Levels[250].RLName.empty());
    EXPECT_EQ(r.S.Ds.View.RotCentre, (std::array<std::int32_t, 3>{200, 0, 2000}));
}

TEST(FollowTool, AClickOnAnAirwayShowsItByTheEndClicked) {
    PickRig r;
    BuildNamed(r);
    r.Click(cmd::Follow, 900, 300);
    ASSERT_EQ(r.Shown.size(), 1u);
    EXPECT_EQ(r.Shown[0].first, 2);
    EXPECT_GT(r.Shown[0].second, 0.5f);
    r.Click(cmd::Follow, 500, 150); // between the airways
    r.Drag(cmd::Follow, 100, 0, 900, 0);
    EXPECT_EQ(r.Shown.size(), 1u);
}

} // namespace
} // namespace karvane::edit
