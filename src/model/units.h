// The unit table: fifteen unit classes, each with an SI and a British factor, labels and
// number formats. Values are SI inside; conversion happens only at the edge.
#pragma once

#include <array>
#include <string>

namespace karvane {

inline constexpr int UnitClassCount = 15;

// Unit classes by their quantity.
namespace uc {
inline constexpr int Length = 1, Velocity = 2, Area = 3, Flow = 4, Resistance = 5, Density = 6,
                     Power = 7, Pressure = 8, Mass = 9, Friction = 10, Currency = 11, Time = 12,
                     AbsPressure = 13, LongLength = 14, Percent = 15;
}

struct UnitRow {
    std::string ClassName;               // empty unless Conversion.dat gives it
    std::array<float, 3> Factor{0, 1, 1}; // [1] SI (always 1), [2] British
    std::array<std::string, 3> Label{};   // [1] SI, [2] British
    std::array<std::string, 3> Format{};  // [1] SI, [2] British
};

struct UnitTable {
    std::array<std::string, 6> Headings{}; // row 0: the six column headings of the file
    std::array<UnitRow, UnitClassCount + 1> Rows{}; // classes 1..15, [0] unused
};

} // namespace karvane
