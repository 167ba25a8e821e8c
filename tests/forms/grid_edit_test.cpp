// The key rules of the tables' edit box and their clipboard text.
#include <gtest/gtest.h>

#include "forms/grid_edit.h"

namespace karvane::forms {
namespace {

const GridLimits Table{1, 10, 1, 4};

TEST(GridEdit, KeysOpenCloseAndMoveTheBoxWithinTheTable) {
    struct Case {
        bool open;
        GridKey key;
        const char* typed;
        GridCell at;
        bool editable;
        GridAction action;
        GridCell next;
        const char* text;
    };
    const Case cases[] = {
        {false, GridKey::Char, "7", {3, 2}, true, GridAction::OpenReplace, {3, 2}, "7"},
        {false, GridKey::Char, ".", {3, 2}, true, GridAction::OpenReplace, {3, 2}, ","}, // the machine's separator
        {false, GridKey::Char, " ", {3, 2}, true, GridAction::OpenKeep, {3, 2}, ""},
        {false, GridKey::DoubleClick, "", {3, 2}, true, GridAction::OpenKeep, {3, 2}, ""},
        {false, GridKey::Char, "7", {3, 2}, false, GridAction::Ignore, {3, 2}, ""},   // a fixed column
        {false, GridKey::Char, "7", {0, 2}, true, GridAction::Ignore, {0, 2}, ""},    // the heading row
        {false, GridKey::Char, "\x03", {3, 2}, true, GridAction::Ignore, {3, 2}, ""}, // Ctrl+C's character
        {false, GridKey::Escape, "", {3, 2}, true, GridAction::EscapeForm, {3, 2}, ""},
        {false, GridKey::Delete, "", {3, 2}, true, GridAction::Clear, {3, 2}, ""},
        {false, GridKey::Enter, "", {3, 2}, true, GridAction::Ignore, {3, 2}, ""},
        {true, GridKey::Escape, "", {3, 2}, true, GridAction::Cancel, {3, 2}, ""},
        {true, GridKey::Enter, "", {3, 2}, true, GridAction::CommitMove, {4, 2}, ""},
        {true, GridKey::Enter, "", {10, 2}, true, GridAction::CommitMove, {10, 2}, ""}, // bounded by the last row
        {true, GridKey::Tab, "", {3, 2}, true, GridAction::CommitMove, {3, 3}, ""},
        {true, GridKey::Tab, "", {3, 4}, true, GridAction::CommitMove, {3, 4}, ""}, // and the last column
        {true, GridKey::Up, "", {1, 2}, true, GridAction::CommitMove, {1, 2}, ""},
        {true, GridKey::Up, "", {5, 2}, true, GridAction::CommitMove, {4, 2}, ""},
        {true, GridKey::Down, "", {5, 2}, true, GridAction::CommitMove, {6, 2}, ""},
        {true, GridKey::Char, "5", {5, 2}, true, GridAction::Ignore, {5, 2}, ""},
    };
    for (const Case& c : cases) {
        const GridStep step = GridKeyStep(c.open, c.key, c.typed, c.at, Table, c.editable, ',');
        SCOPED_TRACE(std::string("key ") + std::to_string(static_cast<int>(c.key)) + " typed '" + c.typed + "'");
        EXPECT_EQ(step.Action, c.action);
        EXPECT_EQ(step.Next, c.next);
        EXPECT_EQ(step.Text, c.text);
    }
    EXPECT_EQ(BoxText("1.5\r", ','), "1,5");
}

TEST(GridEdit, ClipboardTextReadsBackCellForCell) {
    const CellTable table{{"1", "2950", "", "12.5"}, {"2", "", "x y", "0"}};
    const std::string text = ClipboardText(table);
    EXPECT_EQ(text, "1\t2950\t\t12.5\r\n2\t\tx y\t0\r\n");
    EXPECT_EQ(ReadClipboardTable(text), table);
    // Rows ended by LF alone, and a last row without its end, read the same.
    EXPECT_EQ(ReadClipboardTable("1\t2950\t\t12.5\n2\t\tx y\t0"), table);
    EXPECT_TRUE(ReadClipboardTable("").empty());
    EXPECT_EQ(ReadClipboardTable("\r\n"), (CellTable{{""}}));
    EXPECT_EQ(ClipboardColumns(ReadClipboardTable("a\tb\r\nc\td\te\r\n")), 3);
}

} // namespace
} // namespace karvane::forms
