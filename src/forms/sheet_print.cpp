// Printing the spreadsheet's table.
#include "forms/sheet_print.h"

#include "forms/sheet_grid.h"

namespace karvane::forms {

namespace {

constexpr int LastPrintedColumn = 20;
constexpr display::Colour Black = 0;
constexpr display::Colour Red = 255;

} // namespace

std::optional<int> AskPrintFontSize(ui::UserInterface& ui) {
    const auto answer = ui.Input("Enter Printer Font Size", "Font Size", "6");
    if (!answer || answer->empty()) return std::nullopt;
    const auto size = ReadSheetNumber(*answer);
    if (!size || *size < 6 || *size > 72) return std::nullopt;
    return static_cast<int>(*size);
}

std::vector<SheetPrintColumn> SheetPrintColumns(const SpreadSheetForm& form, double pageWidthMm) {
    std::vector<SheetPrintColumn> cols;
    double total = 0;
    for (int c = 1; c <= LastPrintedColumn; ++c) {
        const int w = form.PrintWidth(c);
        if (w <= 0) continue;
        cols.push_back({c, 0, static_cast<double>(w)});
        total += w;
    }
    if (total <= 0) return {};
    const double scale = pageWidthMm * 0.9 / total;
    double x = pageWidthMm / 20;
    for (SheetPrintColumn& c : cols) {
        c.Left = x;
        c.Width *= scale;
        x += c.Width;
    }
    return cols;
}

bool PrintSheetTable(const SpreadSheetForm& form, display::Surface& page, int fontSize) {
    const double w = page.PageWidthMm(), h = page.PageHeightMm();
    if (!(w > 0) || !(h > 0)) return false;
    page.SetCoordinateBox(0, 0, static_cast<float>(w), static_cast<float>(h));
    page.SetFontName("Arial");
    page.SetFontSize(fontSize);
    page.SetFontBold(false);
    page.SetTextOpaque(false);
    const std::vector<SheetPrintColumn> cols = SheetPrintColumns(form, w);
    const double pitch = 1.2 * page.TextHeight("F");
    const double top = h / 20, foot = h - h / 25;
    const auto& layout = SheetColumns();

    auto cell = [&](const SheetPrintColumn& c, double y, const std::string& text, display::Colour colour) {
        double x = c.Left;
        if (layout[static_cast<std::size_t>(c.Col)].RightAligned) x = c.Left + c.Width - page.TextWidth(text) - 0.5;
        page.SetForeColour(colour);
        page.SetCurrentPoint(static_cast<float>(x), static_cast<float>(y));
        page.PrintText(text);
    };
    auto headings = [&](double y) {
        page.SetFontBold(true);
        for (const SheetPrintColumn& c : cols)
            cell(c, y, TrimText(layout[static_cast<std::size_t>(c.Col)].Heading), Black);
        page.SetFontBold(false);
        return y + pitch;
    };

    double y = headings(top);
    for (int r = 1; r <= form.RowCount(); ++r) {
        if (y + pitch > foot) {
            page.NewPage();
            y = headings(top);
        }
        for (const SheetPrintColumn& c : cols) cell(c, y, form.Text(r, c.Col), form.Red(r, c.Col) ? Red : Black);
        y += pitch;
    }
    page.EndDocument();
    return true;
}

} // namespace karvane::forms
