// The grid of the network spreadsheet (frmSpreadSheet): its 22 data columns with their headings
// and alignments, the hidden key column, and the text of each cell as the table shows it, in
// display units. The spreadsheet window and `karvane-cli table` both build their rows here.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "model/model.h"

namespace karvane::forms {

// Column numbers of the grid. Column 0 holds the airway's row in the network (hidden).
namespace sc {
inline constexpr int Key = 0, No = 1, Name = 2, From = 3, To = 4, Length = 5, Flow = 6, Vel = 7, Pdrop = 8,
                     Resistance = 9, KFactor = 10, Shock = 11, Fan = 12, FPres = 13, Height = 14, Width = 15,
                     Comments = 16, X1 = 17, Y1 = 18, Z1 = 19, X2 = 20, Y2 = 21, Z2 = 22;
inline constexpr int Count = 23; // the key column and the 22 data columns
} // namespace sc

// The format string of the grid: "<" left and ">" right alignment, the blanks the width.
inline constexpr const char* SheetFormatString =
    "|<No.   |<Name          |<From       |<To        |>Length|> Flow |> Vel |>Pdrop "
    "|>Resistance|>K-Factor|>Shock|>Fan "
    "|>F Pres|>Height|>Width|< Comments  |>X1     |>Y1     |>Z1     |>X2     |>Y2    |>Z2    ";

struct SheetColumn {
    std::string Heading;       // the heading as the format string gives it, blanks included
    bool RightAligned = false; // ">"
    int Characters = 0;        // the width the format string gives, in characters
};

// The columns parsed from the format string; [0] is the key column (no heading, width 0).
const std::array<SheetColumn, sc::Count>& SheetColumns();

// One row of the grid: its cell texts, which cells are fixed (red), and which cells the user
// has changed since the grid was filled. Marks and changes travel with the row in a sort.
struct SheetRow {
    std::int32_t Key = 0; // the airway's row in the network; 0 for a row with none
    std::array<std::string, sc::Count> Cells{};
    std::uint32_t Marks = 0;   // bit c: the cell of column c is fixed, shown red
    std::uint32_t Changed = 0; // bit c: the cell's text was changed in the grid

    bool Marked(int col) const { return (Marks >> col & 1u) != 0; }
    bool IsChanged(int col) const { return (Changed >> col & 1u) != 0; }
    void SetMark(int col, bool on) {
        if (on) {
            Marks |= 1u << col;
        } else {
            Marks &= ~(1u << col);
        }
    }
};

// The unit class in which a column's numbers are shown and read; 0 for text and whole-number
// columns.
int SheetUnitClass(int col);

// Whether the in-place editor opens on a column: all but the key, "No." and Comments.
bool SheetColumnEditable(int col);

// Whether a column holds numbers (sorted as numbers, read as numbers by SaveGrid).
bool SheetNumberColumn(int col);

// Fills one grid row from an airway of the network: every cell in display units by its
// column's rule, and the marks of the fixed cells.
void FillSheetRow(const Model& model, std::int32_t airway, char decimalSep, SheetRow& row);

// The rows of the grid for a list of airway rows, in list order up to the first empty (0)
// entry, then sorted on "No." as numbers, ascending.
std::vector<SheetRow> BuildSheetRows(const Model& model, const std::vector<std::int32_t>& airways, char decimalSep);

// A cell's text read as a number in display units, as a save reads it: blanks around it
// allowed, an empty cell 0; a sign, digits with "." or "," as the decimal point, and an
// exponent. Anything else gives nothing ("Error in Number Format").
std::optional<double> ReadSheetNumber(std::string_view text);

// A cell's number as the recalculation reads it: a trailing "*" removed, a bad number as 0.
double SheetValue(std::string_view text);

// Whether a cell's text ends in "*" (blanks after it ignored).
bool EndsInStar(std::string_view text);

// Texts shown in F Pres for the two fan pressure sentinels.
inline constexpr const char* NegateText = "Negate";
inline constexpr const char* StallText = "Stall";

} // namespace karvane::forms
