// The network spreadsheet driven by the script of the user's actions: a cell typed, the save,
// its undo by the Edit menu, a refused save, and the lines the form does not know.
#include <gtest/gtest.h>

#include "engineering/resistance.h"
#include "script_support.h"

using namespace karvane;
using karvane::script::testing::ScriptRig;

namespace {

TEST(SpreadSheetScript, ACellTypedAndSavedIsOneUndoStep) {
    ScriptRig r;
    for (std::int32_t row = 1; row <= r.S.M.AirwayCount; ++row) {
        r.Row(row).AirwayNo = row;
        r.Row(row).WallType = 5;
        RecalcAirway(r.S.M, row);
    }
    const Airway before = r.Row(2);
    // What the airway editor gives for the new width.
    r.Row(2).Width = 2.5f;
    RecalcAirway(r.S.M, 2);
    const float expected = r.Row(2).Resistance;
    r.Row(2) = before;
    // Row 2 of the grid is airway 2 (sorted on No.); column 15 is Width.
    EXPECT_EQ(r.Script("menu mnuPower\ncell 2 15 2.5\ncell 2 2 \"Return\"\nbutton SaveGrid\nclose\n"), "");
    EXPECT_EQ(r.Row(2).Width, 2.5f);
    EXPECT_EQ(TrimText(r.Row(2).BranchName), "Return");
    EXPECT_NEAR(r.Row(2).Resistance, expected, 0.5e-5); // as the grid showed it, to its 5 decimals
    EXPECT_EQ(r.Script("menu mnuUndo\n"), "");
    EXPECT_EQ(r.Row(2).Width, before.Width);
    EXPECT_EQ(r.Row(2).Resistance, before.Resistance);
    EXPECT_EQ(TrimText(r.Row(2).BranchName), "");
}

TEST(SpreadSheetScript, BadLinesAreReportedAndARefusedSaveChangesNothing) {
    ScriptRig r;
    const Airway before = r.Row(1);
    EXPECT_EQ(r.Script("menu mnuPower\ncell 1 17 abc\nbutton SaveGrid\nanswer no\nclose\n"), "");
    EXPECT_EQ(r.Row(1), before);
    EXPECT_NE(r.Script("menu mnuPower\ncell 1 1 5\n"), "");     // "No." is not editable
    EXPECT_NE(r.Script("menu mnuPower\ncell 99 2 x\n"), "");    // no such row
    EXPECT_NE(r.Script("menu mnuPower\nbutton cmdNone\n"), ""); // no such button
    EXPECT_EQ(r.Script("menu mnuPower\nfield Row 1\nfield Col 14\nfield Clipboard \"3\\t3\"\nbutton SaveGrid\n"), "");
    EXPECT_EQ(r.Row(1).Height, 3.0f);
    EXPECT_EQ(r.Row(1).Width, 3.0f);
}

} // namespace
