// Conversion.dat: the unit table of the program folder, read over the built-in table at start-up
// and written with the defaults.
#pragma once

#include <string>

#include "model/model.h"
#include "ui/user_interface.h"

namespace karvane::files {

inline constexpr const char* ConversionFileName = "Conversion.dat";
inline constexpr const char* ConversionTitleLine = "Conversion Table : SI Units to British Units";

// Reads the file over model.Units. Any failure says "Error loading conversion values"; the
// table keeps what was not yet overwritten.
bool LoadConversions(Model& model, ui::UserInterface& ui);
// Writes the file; a failure says "Error savings conversion values" and leaves the old file.
bool SaveConversions(const Model& model, ui::UserInterface& ui);

// A number format as read from the file: a decimal comma in the second place (a format saved
// where "," is the decimal separator, "0,00") becomes "."; a thousands group ("0,000"), a
// one-character format and any other text stay as they are.
std::string CorrectedFormat(const std::string& format);

} // namespace karvane::files
