// The commands over all airways: naming, flow labels, lengths, the coordinate swaps.
#include <gtest/gtest.h>

#include <tuple>

#include "forms/network_commands.h"
#include "forms_support.h"

namespace karvane::forms {
namespace {

using testing::FormScene;

TEST(AutoName, NamesUseNumbersOnlyForAirwaysWithoutANameAndCancelChangesNothing) {
    FormScene s;
    for (int i = 0; i < 3; ++i) s.Add(i * 10, 0, 0, i * 10 + 10, 0, 0);
    s.Row(2).BranchName = "Main Drive";
    s.Ui.Answers = {ui::Answer::OK, ui::Answer::OK};
    s.Ui.Inputs = {std::nullopt, std::string()};
    EXPECT_FALSE(AutoNameAirways(s.M, s.Ui)); // the prefix box cancelled: nothing is named
    EXPECT_EQ(s.Row(1).BranchName, "");
    EXPECT_TRUE(AutoNameAirways(s.M, s.Ui)); // an empty prefix gives names of digits alone
    EXPECT_EQ(std::make_tuple(s.Row(1).BranchName, s.Row(2).BranchName, s.Row(3).BranchName),
              std::make_tuple("1", "Main Drive", "2"));
}

TEST(AutoName, NodesAreNamedByTheirExitEndsAndTheNameGoesRound) {
    FormScene s;
    // 1 -> 2 -> 3, and 4 also ends where 1 ends.
    s.Add(0, 0, 0, 10, 0, 0);
    s.Add(10, 0, 0, 20, 0, 0);
    s.Add(20, 0, 0, 30, 0, 0);
    s.Add(10, 50, 0, 10, 0, 0);
    for (int r = 1; r <= 4; ++r) {
        s.Row(r).EntryKey = 1000 + s.Row(r).X1 * 10 + s.Row(r).Y1;
        s.Row(r).ExitKey = 1000 + s.Row(r).X2 * 10 + s.Row(r).Y2;
    }
    s.Row(2).ExitNode = "Station";
    s.Ui.Answers.push_back(ui::Answer::OK);
    s.Ui.Inputs.push_back(std::string("N"));
    EXPECT_TRUE(AutoNameNodes(s.M, s.Ui));
    EXPECT_EQ(s.Row(1).ExitNode, "N1");
    EXPECT_EQ(s.Row(4).ExitNode, "N1");  // same node
    EXPECT_EQ(s.Row(2).EntryNode, "N1"); // leaves that node
    EXPECT_EQ(std::make_tuple(s.Row(3).EntryNode, s.Row(3).ExitNode), std::make_tuple("Station", "N2"));
    // A node at which airways only begin stays unnamed.
    EXPECT_EQ(std::make_tuple(s.Row(1).EntryNode, s.Row(4).EntryNode), std::make_tuple("", ""));
}

TEST(FlowLabels, PreserveRefreshesItsOwnLabelsAndRemoveTakesOnlyWholeLabels) {
    FormScene s;
    for (int i = 0; i < 4; ++i) s.Add(i * 10, 0, 0, i * 10 + 10, 0, 0);
    s.Row(1).Quantity = 12.34f;
    s.Row(2).BranchName = "Intake";
    s.Row(3).BranchName = "(old";
    s.Row(4).Quantity = -3.96f;
    s.Ui.Answers.push_back(ui::Answer::Yes);
    EXPECT_TRUE(PreserveFlowLabels(s.M, s.Ui, '.'));
    EXPECT_EQ(s.Ui.Transcript[0].Text,
              "This routine will automatically copy existing airflows to branch names do not have a pre-exiting text "
              "name.\nAre you sure you want to procede ?");
    EXPECT_EQ(std::make_tuple(s.Row(1).BranchName, s.Row(2).BranchName), std::make_tuple("(12.3)", "Intake"));
    EXPECT_EQ(s.Row(3).BranchName, "(0.0)"); // a name that begins with "(" counts as a label
    EXPECT_EQ(s.Row(4).BranchName, "(-4.0)");
    s.Row(1).Quantity = 20;
    s.Ui.Answers.push_back(ui::Answer::Yes);
    PreserveFlowLabels(s.M, s.Ui, ',');
    EXPECT_EQ(s.Row(1).BranchName, "(20,0)");

    s.Row(3).BranchName = "(old";
    RemoveFlowLabels(s.M);
    EXPECT_EQ(std::make_tuple(s.Row(1).BranchName, s.Row(2).BranchName, s.Row(3).BranchName),
              std::make_tuple("", "Intake", "(old"));
}

TEST(Lengths, FixAndUnfixSetTheBitOnEveryAirway) {
    FormScene s;
    s.Add(0, 0, 0, 10, 0, 0);
    s.Add(10, 0, 0, 20, 0, 0);
    s.Ui.Answers.push_back(ui::Answer::No);
    EXPECT_FALSE(FixAllLengths(s.M, s.Ui));
    EXPECT_FALSE(s.Row(1).Has(bc::FixedLength));
    s.Ui.Answers.push_back(ui::Answer::Yes);
    EXPECT_TRUE(FixAllLengths(s.M, s.Ui));
    EXPECT_TRUE(s.Row(2).Has(bc::FixedLength));
    EXPECT_TRUE(s.Ui.Said("All lengths are now fixed"));
    s.Ui.Answers.push_back(ui::Answer::Yes);
    EXPECT_TRUE(UnfixAllLengths(s.M, s.Ui));
    EXPECT_FALSE(s.Row(2).Has(bc::FixedLength));
    EXPECT_TRUE(s.Ui.Said("All lengths are now unfixed"));
    EXPECT_EQ(s.Ui.Transcript[3].Title, "Unfix all lengths");
}

TEST(Axes, EachSwapDoneTwiceRestoresCoordinatesAndSigns) {
    FormScene s;
    s.Add(1, 2, 3, 4, 5, 6);
    s.M.SgnX = 1;
    s.M.SgnY = -1;
    s.Ui.DefaultAnswer = ui::Answer::OK;
    EXPECT_TRUE(SwapXYAxis(s.M, s.Ui));
    EXPECT_EQ(std::make_tuple(s.Row(1).X1, s.Row(1).Y2, s.M.SgnX, s.M.SgnY), std::make_tuple(2, 4, -1, 1));
    EXPECT_NEAR(s.M.SavedViews[3].ViewParam[1], 3.141592654 / 2, 1e-6); // the tilts follow SgnY
    EXPECT_TRUE(SwapXYAxis(s.M, s.Ui));
    EXPECT_EQ(std::make_tuple(s.Row(1).X1, s.M.SgnX, s.M.SgnY), std::make_tuple(1, 1, -1));

    s.Ui.DefaultAnswer = ui::Answer::Yes;
    EXPECT_TRUE(ReverseCoordinateAxis(s.M, s.Ui));
    EXPECT_EQ(std::make_tuple(s.M.SgnX, s.M.SgnY, s.Row(1).X1), std::make_tuple(-1, 1, 2));
    EXPECT_TRUE(ReverseCoordinateAxis(s.M, s.Ui));
    EXPECT_EQ(std::make_tuple(s.M.SgnX, s.M.SgnY, s.Row(1).X1, s.Row(1).Z2, s.Ui.Transcript.back().Title),
              std::make_tuple(1, -1, 1, 6, "Alter coordinate system"));
}

TEST(OneSense, AirwaysDrawnBothWaysBetweenTheSameEndsComeOutAlike) {
    FormScene s;
    const std::int32_t ends[][6] = {
        {10, 0, 0, 0, 5, 9}, {0, 9, 4, 0, 2, 1}, {3, 3, 9, 3, 3, 1}, {0, 0, 7, 5, -7, 7}, {4, 4, 4, 8, 2, 4}};
    for (const auto& e : ends) {
        s.Add(e[0], e[1], e[2], e[3], e[4], e[5]);
        s.Add(e[3], e[4], e[5], e[0], e[1], e[2]);
    }
    GiveAirwaysOneSense(s.M);
    for (std::int32_t r = 1; r < s.M.AirwayCount; r += 2) {
        const Airway& a = s.Row(r);
        const Airway& b = s.Row(r + 1);
        EXPECT_EQ(std::tie(a.X1, a.Y1, a.Z1, a.X2, a.Y2, a.Z2), std::tie(b.X1, b.Y1, b.Z1, b.X2, b.Y2, b.Z2)) << r;
        // The last pass leaves every airway running up in Z, level ones up in Y.
        EXPECT_LE(a.Z1, a.Z2);
        if (a.Z1 == a.Z2) {
            EXPECT_LE(a.Y1, a.Y2);
        }
    }
}

} // namespace
} // namespace karvane::forms
