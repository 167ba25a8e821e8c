// The unit table: fifteen unit classes, each with an SI and a British factor, labels and
// number formats. Values are SI inside; conversion happens only at the edge.
#pragma once

#include <array>
#include <string>
#include <string_view>

namespace karvane {

inline constexpr int UnitClassCount = 15;

// Unit classes by their quantity.
namespace uc {
inline constexpr int Length = 1, Velocity = 2, Area = 3, Flow = 4, Resistance = 5, Density = 6, Power = 7, Pressure = 8,
                     Mass = 9, Friction = 10, Currency = 11, Time = 12, AbsPressure = 13, LongLength = 14, Percent = 15;
}

struct UnitRow {
    std::string ClassName;                // empty unless Conversion.dat gives it
    std::array<float, 3> Factor{0, 1, 1}; // [1] SI (always 1), [2] British
    std::array<std::string, 3> Label{};   // [1] SI, [2] British
    std::array<std::string, 3> Format{};  // [1] SI, [2] British
};

struct UnitTable {
    std::array<std::string, 6> Headings{};          // row 0: the six column headings of the file
    std::array<UnitRow, UnitClassCount + 1> Rows{}; // classes 1..15, [0] unused
};

struct Model;

// The built-in table: SI factors 1, the British factors as Singles, the labels and formats of
// both systems; class names and headings empty (they come only from Conversion.dat).
void SetBuiltInUnits(UnitTable& units);

// The unit class of a data type of the views; 0 when the type has none.
int DataUnit(int dataType);

// A stored SI value in the current unit system (UnitSys 2 British, anything else SI), rounded
// to a Single. Class 0 or a class outside the table leaves the value as it is.
float ToDisplay(const Model& model, double value, int unitClass);

// A typed entry back to SI: its leading number divided by the factor of the class. An empty or
// non-numeric entry is 0; a factor of 0 (a damaged table) leaves the entry undivided.
double FromDisplay(const Model& model, std::string_view text, int unitClass);

// The label and the number format of a class in the current unit system; empty for class 0.
const std::string& UnitLabel(const Model& model, int unitClass);
const std::string& UnitFormat(const Model& model, int unitClass);

} // namespace karvane
