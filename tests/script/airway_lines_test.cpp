// The airway lines of the script: set goes through the airway editor's controls and OK, with
// its limits and messages and one undo step; select marks a selection that set then edits as
// a whole.
#include <gtest/gtest.h>

#include "script/script_reader.h"
#include "script_support.h"

namespace karvane::script::testing {
namespace {

TEST(ScriptAirwayLines, SetGoesThroughTheEditorInDisplayUnits) {
    ScriptRig r;
    const std::int32_t no = r.Row(2).AirwayNo;
    EXPECT_EQ(
        r.Script("set " + std::to_string(no) +
                 " TxtWidth=6 txtHeight=5 CheckFix=1 TxtFlow=25 CmbWall=\"Timbered Airway\" \"TxtName=Main drive\"\n"),
        "");
    const Airway& a = r.Row(2);
    EXPECT_EQ(a.Width, 6.0f);
    EXPECT_EQ(a.Height, 5.0f);
    EXPECT_TRUE(a.Has(bc::FixedFlow));
    EXPECT_EQ(a.Quantity, 25.0f);
    EXPECT_EQ(a.WallType, 8);
    EXPECT_EQ(a.BranchName, "Main drive");
    EXPECT_EQ(r.Run->undo().CurrentStep, 2);
    // In British units the boxes are in feet and cubic feet a minute.
    r.S.M.Set.UnitSys = 2;
    EXPECT_EQ(r.Script("set " + std::to_string(no) + " TxtWidth=32.8084\n"), "");
    EXPECT_NEAR(r.Row(2).Width, 10.0f, 1e-5);
    // The undo takes the last set back.
    EXPECT_EQ(r.Script("menu mnuUndo\n"), "");
    bool found = false;
    for (std::int32_t row = 1; row <= r.S.M.AirwayCount; ++row) {
        if (r.Row(row).AirwayNo != no) continue;
        found = true;
        EXPECT_EQ(r.Row(row).Width, 6.0f);
    }
    EXPECT_TRUE(found);
}

TEST(ScriptAirwayLines, LimitsMessagesAndRefusals) {
    ScriptRig r;
    const std::string no = std::to_string(r.Row(1).AirwayNo);
    EXPECT_EQ(r.Script("set " + no + " TxtWidth=0 ChkFixRes=1 TxtFixRes=0\n"), "");
    EXPECT_EQ(r.Row(1).Width, 0.01f);
    EXPECT_EQ(r.Row(1).ResType, CustomPreset);
    EXPECT_EQ(r.Script("set " + no + " TxtMultiAir=2 FanCombo2=None\n"), "");
    EXPECT_EQ(r.Row(1).NoAirways, 2);
    // A refused control stops the script and applies nothing.
    const float width = r.Row(1).Width;
    EXPECT_EQ(r.Script("set " + no + " TxtWidth=9 TxtFlow=3\n"),
              "line 1: TxtFlow is read-only unless CheckFix is ticked");
    EXPECT_EQ(r.Row(1).Width, width);
    EXPECT_EQ(r.Script("set " + no + " Nothing=1\n"), "line 1: frmAirEdit has no control Nothing");
    EXPECT_EQ(r.Script("set 999 TxtWidth=3\n"), "line 1: no airway numbered 999");
    EXPECT_EQ(r.Script("set " + no + " TxtWidth\n"), "line 1: expected NAME=VALUE, not \"TxtWidth\"");
    EXPECT_EQ(r.Script("set " + no + " ResCombo=\"No such\"\n"), "line 1: no row \"No such\" in ResCombo");
}

TEST(ScriptAirwayLines, SelectThenSetEditsOnlyTheTouchedGroups) {
    ScriptRig r;
    r.Row(3).BranchCode = bc::Circular;
    r.Row(3).Width = 3;
    const auto no = [&](std::int32_t row) { return std::to_string(r.Row(row).AirwayNo); };
    EXPECT_EQ(r.Script("select " + no(1) + " " + no(3) + "\nset " + no(1) + " ChkFixK=1 TxtWall=0.02\n"), "");
    for (std::int32_t row : {1, 3}) {
        EXPECT_EQ(r.Row(row).WallType, CustomPreset);
        EXPECT_FLOAT_EQ(r.Row(row).WallFactor, 0.02f);
    }
    EXPECT_EQ(r.Row(3).Width, 3.0f);
    EXPECT_TRUE(r.Row(3).Has(bc::Circular));
    EXPECT_NE(r.Row(2).WallType, CustomPreset);
    EXPECT_EQ(r.Script("set " + no(1) + " TxtName=X\n"), "line 1: TxtName is not available in a multiple selection");
    EXPECT_EQ(r.Script("select\n"), "");
    EXPECT_FALSE(r.Row(1).Has(bc::Selected));
}

} // namespace
} // namespace karvane::script::testing
