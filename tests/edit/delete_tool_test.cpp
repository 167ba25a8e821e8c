// The delete tool and the row deletion under it: the join at a node of two airways and its
// refusal at a node of three, the airway at the network's edge, the selection, floating text,
// and the fence delete with its one undo step.
#include <gtest/gtest.h>

#include "edit/delete_rows.h"
#include "pick_support.h"

namespace karvane::edit {
namespace {

using testing::PickRig;

// A drive of two airways meeting at (500, 0), of different sizes and names, and a parallel
// airway at y = 500.
void BuildPair(PickRig& r) {
    r.S.Add(0, 0, 500, 500, 0, 500);
    r.S.Row(1).BranchName = "WEST DRIVE";
    r.S.Add(500, 0, 500, 1000, 0, 500);
    r.S.Row(2).Width = 6;
    r.S.Add(0, 500, 500, 1000, 500, 500);
}

TEST(DeleteTool, ANodeOfThreeIsRefusedAndTheEdgeOfTheNetworkDeletesTheAirway) {
    PickRig r;
    BuildPair(r);
    r.S.Add(500, 0, 500, 500, 500, 500); // a third airway leaves the node
    r.Draw();
    r.Click(cmd::Delete, 500, 0);
    EXPECT_EQ(r.S.Ui.Texts("Message"), (std::vector<std::string>{"Too many attached branches to delete node"}));
    EXPECT_EQ(r.S.M.AirwayCount, 4);
    EXPECT_TRUE(r.LogEntries().empty());

    // No other airway ends where airway 1 begins: the pick goes on as an airway pick.
    r.Click(cmd::Delete, 0, 0);
    ASSERT_EQ(r.S.M.AirwayCount, 3);
    EXPECT_EQ(r.S.Row(1).X1, 500);
    EXPECT_NE(r.S.Row(1).BranchName, "WEST DRIVE");
    EXPECT_EQ(r.LogEntries().size(), 1u);
}

TEST(DeleteTool, TheSelectionGoesInOneStepAndTextIsSwitchedOff) {
    PickRig r;
    BuildPair(r);
    r.S.Add(0, 1000, 500, 1000, 1000, 500);
    r.S.Row(1).BranchCode |= bc::Selected;
    r.S.Row(4).BranchCode |= bc::Selected;
    r.S.M.FloatingTexts[1] = FloatingText{true, "PUMP", 200, 300, 500};
    r.Draw();
    const std::int16_t step = r.Undo.CurrentStep;
    r.Click(cmd::Delete, 250, 0); // on a selected airway
    ASSERT_EQ(r.S.M.AirwayCount, 2);
    EXPECT_EQ(r.LogEntries(), (std::vector<std::pair<int, int>>{{step, 2}, {step, 2}}));
    EXPECT_EQ(r.Calls.back(), "RedrawAllWindows");

    r.Click(cmd::Delete, 200, 300);
    EXPECT_FALSE(r.S.M.FloatingTexts[1].TextOn);
    EXPECT_EQ(r.S.M.AirwayCount, 2);
}

TEST(DeleteTool, TheFenceAsksAndDeletesEveryDrawnAirwayWithinInOneStep) {
    PickRig r;
    BuildPair(r);
    r.Draw();
    const std::vector<std::string> question{"Are you sure you want to delete all airways within the fence?"};

    // No: nothing goes.
    r.S.Ui.Answers.push_back(ui::Answer::No);
    r.Drag(cmd::Delete, -50, -50, 1050, 100);
    EXPECT_EQ(r.S.Ui.Texts("Ask"), question);
    EXPECT_EQ(r.S.Ui.Transcript.back().Title, "Fence Delete");
    EXPECT_EQ(r.S.M.AirwayCount, 3);

    // An empty fence asks nothing.
    r.Drag(cmd::Delete, 100, 150, 300, 350);
    EXPECT_EQ(r.S.Ui.Texts("Ask").size(), 1u);

    // Yes: both airways of the drive, in one step; the parallel airway stays.
    const std::int16_t step = r.Undo.CurrentStep;
    r.Drag(cmd::Delete, -50, -50, 1050, 100);
    ASSERT_EQ(r.S.M.AirwayCount, 1);
    EXPECT_EQ(r.S.Row(1).Y1, 500);
    EXPECT_EQ(r.LogEntries(), (std::vector<std::pair<int, int>>{{step, 2}, {step, 2}}));
    EXPECT_EQ(r.Undo.CurrentStep, step + 1);

    // Everything: the table is empty and the log holds the last row.
    r.Drag(cmd::Delete, -100, -100, 1100, 600);
    EXPECT_EQ(r.S.M.AirwayCount, 0);
    EXPECT_NE(r.Undo.RecordText(3).find("500"), std::string::npos);
    r.Click(cmd::Delete, 500, 0); // on nothing: nothing happens
    EXPECT_EQ(r.S.M.AirwayCount, 0);
}

TEST(DeleteTool, OnlyAirwaysDrawnInTheViewAreWithinAFence) {
    PickRig r;
    BuildPair(r);
    r.S.Add(0, 0, 300, 1000, 0, 300); // under the drive, on another level
    r.Draw();
    r.S.Ds.View.LevelMode = display::lm::Single;
    r.S.Ds.View.CurrentRLMin = 480;
    r.S.Ds.View.CurrentRLMax = 500;
    r.S.Refresh();
    r.Host.Redraw();
    r.Drag(cmd::Delete, -50, -50, 1050, 100);
    ASSERT_EQ(r.S.M.AirwayCount, 2);
    EXPECT_EQ(r.S.Row(2).Z1, 300);
}

TEST(DeleteRows, TheRowsOfASpreadsheetGoInOneStepAndOneCompaction) {
    PickRig r;
    BuildPair(r);
    r.S.Add(0, 1000, 500, 1000, 1000, 500);
    const std::vector<std::int32_t> rows{1, 3, 3, 99};
    DeleteRows(r.S.M, r.S.Ui, r.Undo, rows);
    ASSERT_EQ(r.S.M.AirwayCount, 2);
    EXPECT_EQ(r.S.Row(1).X1, 500);
    EXPECT_EQ(r.S.Row(2).Y1, 1000);
    EXPECT_EQ(r.LogEntries(), (std::vector<std::pair<int, int>>{{1, 2}, {1, 2}}));
    EXPECT_EQ(r.Undo.CurrentStep, 2);
}

} // namespace
} // namespace karvane::edit
