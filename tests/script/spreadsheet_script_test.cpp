// The network spreadsheet driven by the script of the user's actions: a cell typed, the save,
// its undo by the Edit menu, a refused save, and the lines the form does not know.
#include <gtest/gtest.h>

#include "engineering/resistance.h"
#include "script_support.h"

using namespace karvane;
using karvane::script::testing::ScriptRig;

namespace {

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
