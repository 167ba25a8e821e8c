// The number forms of the program's text files: the plain form (airway rows) and the padded
// form (every other numeric field), the reading of numbers written under either decimal
// separator, the line splitter of the readers, and the saturating conversions a reader uses
// so that arbitrary bytes never overflow a stored field.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "model/network.h"

namespace karvane::files {

// Plain form: shortest general text, at most 7 significant digits for a Single and 15 for a
// Double, exponent form ("1E+09", "1.5E-07") when the decimal exponent is 7 (15) or more or
// below -5. The decimal separator is `sep`.
std::string PlainSingle(float value, char sep);
std::string PlainDouble(double value, char sep);
std::string PlainInt(std::int64_t value);
// Fixed point with 4 decimals, never in exponent form ("12.5", "-0.0001").
std::string PlainFixed(Fixed4 value, char sep);

// Padded form: one blank before a number that is not negative, one blank after in every case.
std::string Padded(const std::string& plain);
inline std::string PaddedSingle(float v, char sep) { return Padded(PlainSingle(v, sep)); }
inline std::string PaddedDouble(double v, char sep) { return Padded(PlainDouble(v, sep)); }
inline std::string PaddedInt(std::int64_t v) { return Padded(PlainInt(v)); }
inline std::string PaddedFixed(Fixed4 v, char sep) { return Padded(PlainFixed(v, sep)); }
// Booleans of the padded sections are the words "True" and "False".
inline std::string BoolWord(bool v) { return v ? "True" : "False"; }

// The value of a number written under either separator: blanks around it are dropped, the
// leading numeric part of a text is taken ("12abc" is 12), an empty or non-numeric text is 0.
double ParseNumber(std::string_view text);
// Whether the text holds a number at all (after blanks).
bool IsNumber(std::string_view text);
// "True" (any case) or a non-zero number is true.
bool ParseBool(std::string_view text);
// Fixed point from text, exact to 4 decimals (no detour through binary floating point).
Fixed4 ParseFixed(std::string_view text);

// Saturating conversions to the stored types: NaN is 0, values beyond the type's range are
// held at its ends, whole-number types round half to even as the stores always have.
std::int16_t ToInt16(double v);
std::int32_t ToInt32(double v);
std::uint8_t ToByte(double v);
float ToSingle(double v);

// A line split into at most 100 fields, numbered from 1; fields[0] is unused and a field
// the line does not reach is empty. Text beyond the 100th tab stays in field 100.
using Fields = std::array<std::string, 101>;

// The line splitter of the readers. Above version 2.4 every "," and "." of the line first
// becomes the local separator `localSep`, then the line is cut at tabs. At 2.4 and below the
// line is cut at commas, the last field is held to 30 characters, and in each field a "."
// becomes the local separator when that is not ".".
void SplitLine(double version, std::string_view text, Fields& fields, char localSep);
// One item of a comma-separated line, from `pos`: blanks before it are dropped, and an item in
// quotes keeps its commas and loses its quotes. Returns where the item ends: at the comma that
// follows it, or at the end of the text.
std::size_t CommaItem(std::string_view text, std::size_t pos, std::string& item);
// The same cut into fields with every byte kept: no separator is replaced, so that names keep
// their commas and full stops. Numbers read through ParseNumber accept either separator.
void SplitFields(double version, std::string_view text, Fields& fields);

// The decimal separator as the plain text of 1.2 shows it: its second character.
inline char LocalSeparator(char machineSeparator) { return machineSeparator; }

} // namespace karvane::files
