// The delete, selection, paste and find commands as a script of the user's actions drives
// them: a join and its undo, a fence delete undone in one step, the Find menu with the airway
// it showed, the list finders and the attribute choice.
#include <gtest/gtest.h>

#include <tuple>

#include <algorithm>
#include <array>
#include <vector>

#include "script_support.h"

namespace karvane::script {
namespace {

using testing::ScriptRig;

// The network as a sorted list of end points, whatever the order of its rows.
std::vector<std::array<std::int32_t, 6>> Ends(const Model& m) {
    std::vector<std::array<std::int32_t, 6>> ends;
    for (std::int32_t row = 1; row <= m.AirwayCount; ++row) {
        const Airway& a = m.Airways[static_cast<std::size_t>(row)];
        ends.push_back({a.X1, a.Y1, a.Z1, a.X2, a.Y2, a.Z2});
    }
    std::sort(ends.begin(), ends.end());
    return ends;
}

TEST(PickScript, AJoinAndItsRefusalAndOneUndoForEach) {
    ScriptRig r;
    ASSERT_EQ(r.Script("box -200,-200 1200,1200\n"), "");
    const auto before = Ends(r.S.M);
    EXPECT_EQ(r.Script("tool delete\nclick 1000,1000\n"), "");
    EXPECT_EQ(r.S.Ui.Texts("Message"), (std::vector<std::string>{"Too many attached branches to delete node"}));
    EXPECT_EQ(r.Script("click 1000,0\n"), "");
    ASSERT_EQ(r.S.M.AirwayCount, 4);
    EXPECT_EQ(r.Row(1).X2, 1000);
    EXPECT_EQ(r.Row(1).Y2, 1000);
    EXPECT_EQ(r.Script("key Backspace\n"), "");
    EXPECT_EQ(Ends(r.S.M), before);
}

TEST(PickScript, TheFindMenuShowsTheAirwayAndTheLevelItChose) {
    ScriptRig r;
    ASSERT_EQ(r.Script("box -200,-200 1200,1200\n"), "");
    r.Row(3).ExitNode = "Shaft Top";
    r.Row(5).EntryNode = "shaft top";
    std::vector<std::string> printed;
    r.Run->OnShown = [&printed](const Session::ShownAirway& s) { printed.push_back(Session::ShownLine(s)); };
    EXPECT_EQ(r.Script("answer \"AFT T\"\nmenu mnuFinder(5)\ntool find-next\ntool find-next\n"), "");
    ASSERT_EQ(r.Run->Shown().size(), 3u);
    EXPECT_EQ(std::make_tuple(r.Run->Shown()[0].Row, r.Run->Shown()[1].Row, r.Run->Shown()[2].Row, printed[0]),
              std::make_tuple(3, 5, 3, "shown: airway 3 (row 3), level \"U/Ground\""));
    // The raise begins at 500 (its From end counts): no level is added.
    EXPECT_EQ(std::make_tuple(r.S.M.Levels[4].RLName, r.S.M.Find.FinderTick), std::make_tuple("", 5));

    // The list finder of node names, narrowed and clicked.
    EXPECT_EQ(r.Script("menu mnuFNName\nfield TxtFilter top\nfield LstNames \"shaft top\"\n"), "");
    EXPECT_EQ(r.Run->Shown().back().Row, 3);
    EXPECT_NE(r.Script("menu mnuFBName\nfield LstNames nobody\n"), "");
}

TEST(PickScript, AttributesByToolAndTheirChoiceByForm) {
    ScriptRig r;
    ASSERT_EQ(r.Script("box -200,-200 1200,1200\n"), "");
    EXPECT_EQ(r.Script("tool attributes\nclick 500,0\n"), "");
    EXPECT_EQ(r.Script("menu mnucpAttrib\nbutton cmdDeselectAll\nfield ChkAttrib(3) 1\nbutton cmdOK\n"), "");
    EXPECT_EQ(r.S.M.Set.AttributeMask, 511 - 8);
    r.Row(1).ResType = 2;
    EXPECT_EQ(r.Script("click 500,0 right\nanswer yes\ndrag -50,900 1050,1100\n"), "");
    EXPECT_EQ(r.Row(3).ResType, 2);
    EXPECT_EQ(r.S.Ui.Texts("Message").front(),
              "Paste attributes must first be copied from an existing branch by using the right mouse button");
    EXPECT_EQ(r.S.Ui.Texts("Message").back(),
              "The following attributes for branch 1 were copied for future pasting\nResistance Type: Steel Door");
    EXPECT_EQ(r.Script("menu mnuConfirm\n"), "");
    EXPECT_TRUE(r.S.M.Confirmations);
}

} // namespace
} // namespace karvane::script
