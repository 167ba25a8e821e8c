// The one number formatter of the program: a value and a pattern of the kind the unit table
// and the reports use ("0.0", "0,000", "$#,##0", "0 %", "hh:mm:ss", "0.0########"), and the
// reading of a number the user typed.
#pragma once

#include <concepts>
#include <string>
#include <string_view>

namespace karvane {

// Formats a value by a pattern.
//
// Number patterns: "0" is a digit that is always shown, "#" a digit shown only when it
// counts; "." is the decimal point, written as decimalSep. A "," between digit placeholders
// groups the whole part by thousands (thousandsSep), so "0,000" shows 5 as "0,005" and
// 1234567 as "1,234,567"; a "," just before the point or at the end of the digits divides by
// 1000. Each "%" multiplies by 100 and is shown where it stands ("0 %" shows 0.5 as "50 %").
// Anything else ("$", " m3/s", text in double quotes, a character after "\") is written as it
// stands, before or after the number; literals between digit placeholders go after it.
// Rounding is half away from zero on the decimal digits of the value: 15 significant digits
// for a double, the shortest digits that read back for a float, so that 2.675 shows as 2.68
// by "0.00". Decimals behind the required "0"s are dropped when they are zero
// ("0.0########" shows 1 as "1.0" and 1.25 as "1.25").
// A negative value takes a leading "-" in front of everything ("-$1,235"); a value that rounds
// to zero is shown without it.
//
// Time patterns ("hh:mm:ss", "h:mm:ss", with "n" or "m" for minutes and "s" for seconds) take
// the value as a fraction of a day, as the times of the spread are given (seconds / 86404),
// rounded to the nearest second. Hours count on past 24: a day and two hours is "26:00:00".
//
// An empty pattern, or one without placeholders, gives the plain general form ("1234.5").
// Not-a-number and infinities give "NaN", "Infinity" and "-Infinity". When the two separators
// are the same character the thousands separator becomes the other of "," and ".".
std::string FormatNumber(double value, std::string_view pattern, char decimalSep = '.', char thousandsSep = ',');
// A Single is formatted from its own shortest digits: 0.1f by "0.0########" is "0.1".
std::string FormatNumber(float value, std::string_view pattern, char decimalSep = '.', char thousandsSep = ',');
// Whole numbers (AirwayNo, counts) go as doubles.
template <std::integral T>
std::string FormatNumber(T value, std::string_view pattern, char decimalSep = '.', char thousandsSep = ',') {
    return FormatNumber(static_cast<double>(value), pattern, decimalSep, thousandsSep);
}

// The leading number of a text the user typed or a file holds: blanks before it are skipped,
// an optional sign, digits, a decimal part after "." or ",", and an exponent after E or D.
// Whatever follows is ignored ("12abc" is 12); an empty or non-numeric text is 0. Values
// beyond the range of a double are held at its ends; ones too small for it are 0.
double ParseLeadingNumber(std::string_view text);

} // namespace karvane
