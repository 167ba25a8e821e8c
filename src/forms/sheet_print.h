// The printed network spreadsheet: the visible columns among 1 to 20 across a landscape page,
// their widths scaled to the page, the headings at the top of every page, and a new page when
// the next row would pass the foot margin. Drawn through the page road's surface.
#pragma once

#include <optional>
#include <vector>

#include "display/surface.h"
#include "forms/spreadsheet_form.h"
#include "ui/user_interface.h"

namespace karvane::forms {

// The printer font size: "Enter Printer Font Size", default 6. Nothing when the answer is
// empty, not a number or below 6.
std::optional<int> AskPrintFontSize(ui::UserInterface& ui);

// Where the columns of the printed table stand, in millimetres from the page's left edge.
struct SheetPrintColumn {
    int Col = 0;
    double Left = 0, Width = 0;
};

// The visible columns among 1 to 20 with their widths (the window's widths, or the format
// string's characters before the window has given any) scaled to the page width less one tenth,
// from a left margin of one twentieth of the page width.
std::vector<SheetPrintColumn> SheetPrintColumns(const SpreadSheetForm& form, double pageWidthMm);

// The whole table on as many pages as it needs. False when the page has no size.
bool PrintSheetTable(const SpreadSheetForm& form, display::Surface& page, int fontSize);

} // namespace karvane::forms
