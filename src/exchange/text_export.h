// The export of the airways to a tab-separated text file for a spreadsheet, in the current unit
// system. Its columns are those the text import reads, so a network can leave and come back.
#pragma once

#include <array>
#include <span>
#include <string>
#include <string_view>

#include "model/model.h"
#include "ui/user_interface.h"

namespace karvane::exchange {

// The heading line's sixteen columns.
inline constexpr std::array<const char*, 16> TextExportHeadings{
    "X1",       "Y1",      "Z1",          "X2",         "Y2",        "Z2",     "QUANTITY",   "RESISTANCE",
    "FAN TYPE", "NO FANS", "BRANCH NAME", "ENTRY NODE", "EXIT NODE", "HEIGHT", "WIDTH/DIAM", "Airway No"};

// Writes the heading and one line per airway row: coordinates, flow (rounded to one decimal
// first), resistance (to five decimals first), fan number and count, the three names at their
// full 40 characters, height, width and the airway number, numbers in padded form with the
// machine's decimal separator. Returns whether the file was written; a failure tells the user
// "Error exporting File" and leaves any file that was there as it was.
bool ExportText(const Model& model, const std::string& file, ui::UserInterface& ui);

// The text of one airway's line, without its line end.
std::string TextExportLine(const Model& model, std::int32_t row, char sep);

// Lines of tab-separated items, as the exports and the results file write them: a tab between
// items, none behind the last.
void AddField(std::string& line, std::string_view item);
std::string TabJoined(std::span<const char* const> items);

// The end of every export: the busy pointer off, and "Error exporting File" when the file was
// not written (`code` is the error code of the write). Returns whether it was written.
bool EndExport(ui::UserInterface& ui, int code);

} // namespace karvane::exchange
