// The in-place editing of the dialogs' tables: the rules of the edit box laid over a grid cell
// (which key opens it, closes it, moves it), and the tables' clipboard text (tab between cells,
// CR LF after each row). Shared by the fan table, the level table, the units table and the
// network spreadsheet; the Qt grid editor only carries these decisions out.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace karvane::forms {

struct GridCell {
    int Row = 0;
    int Col = 0;
    bool operator==(const GridCell&) const = default;
};

// The cells the box may move over: rows and columns from first to last, both included.
struct GridLimits {
    int FirstRow = 0;
    int LastRow = 0;
    int FirstCol = 0;
    int LastCol = 0;
    bool Contains(GridCell c) const {
        return c.Row >= FirstRow && c.Row <= LastRow && c.Col >= FirstCol && c.Col <= LastCol;
    }
};

// A key as the table or its box receives it. Char carries the typed text; DoubleClick behaves
// as a key of code 32 (a blank).
enum class GridKey { Char, Escape, Enter, Tab, Up, Down, Delete, DoubleClick };

enum class GridAction {
    Ignore,      // the key is not the editor's (navigation of the table, typing inside the box)
    OpenReplace, // open the box over the cell with Text as its only content, caret behind it
    OpenKeep,    // open the box with the cell's text, caret at the end
    Cancel,      // close the box, the cell as it was, focus back to the table
    CommitMove,  // take the box's text into the cell, then make Next the current cell
    Clear,       // empty the selected cells
    EscapeForm,  // Escape with the box closed: the dialog's own Cancel
};

struct GridStep {
    GridAction Action = GridAction::Ignore;
    GridCell Next;    // the current cell after the step
    std::string Text; // OpenReplace: the box's first text
};

// One key on a table whose current cell is `at`. `editable` says whether that cell takes the
// box (column 0, "No." and the comments of the spreadsheet do not). `sep` is the machine's
// decimal separator, which a typed "." becomes.
GridStep GridKeyStep(bool boxOpen, GridKey key, std::string_view typed, GridCell at, const GridLimits& limits,
                     bool editable, char sep);

// A character typed into a box: "." becomes the decimal separator; a carriage return is
// swallowed (empty).
std::string BoxText(std::string_view typed, char sep);

// Clipboard tables.
using CellTable = std::vector<std::vector<std::string>>;

// Cells separated by a tab, each row ended by CR LF.
std::string ClipboardText(const CellTable& rows);

// Reads clipboard text character by character: a tab ends a cell, a carriage return ends a
// cell and the row, a line feed is skipped. A last row without its CR counts; a text ending in
// CR gives no empty row behind it. Text of other programs that ends rows with LF alone reads
// the same.
CellTable ReadClipboardTable(std::string_view text);

struct CellWrite {
    GridCell Cell;
    std::string Text;
};

// A paste from the current cell `from`: each clipboard row goes to the next table row, starting
// again at the column of `from`; cells outside `limits` are dropped. While the selection reaches
// further down (to `selectionLastRow`) than the text, the text is pasted again from its top.
std::vector<CellWrite> PasteWrites(const CellTable& clip, GridCell from, int selectionLastRow,
                                   const GridLimits& limits);

// The widest row of a clipboard table.
int ClipboardColumns(const CellTable& clip);

} // namespace karvane::forms
