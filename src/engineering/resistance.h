// The Atkinson resistance of an airway from its shape, size, end points and presets, and the
// arithmetic of the two calculators of the airway editor: the orifice (regulator) resistance
// and the shock loss total summed from a table of equivalent lengths.
#pragma once

#include <array>
#include <cstdint>
#include <functional>

#include "model/model.h"

namespace karvane {

// pi as the resistance formulas use it: the literal value, not a more exact one, so that
// areas and perimeters of circular airways come out as they always have.
inline constexpr double ResistancePi = 3.1415926;
// Friction factors are quoted at this standard air density, kg/m3.
inline constexpr double StandardDensity = 1.2;
// Area taken off by services (pipes, cables) in an airway, m2.
inline constexpr double ServicesArea = 0.8;
// Least area an airway is worked with, m2, so that a bad size never divides by zero.
inline constexpr float LeastArea = 0.05f;
// Resistance given to an airway whose worked value is exactly zero, Ns2/m8.
inline constexpr float LeastResistance = 0.00001f;

// Brings one airway's Length, WallFactor, ShockFactor, NoAirways, Height (circular airways)
// and Resistance up to date from its dimensions, end points and the preset tables. A custom
// resistance (ResType 50) keeps its value. Rows outside 1..MaxAirways are ignored.
void RecalcAirway(Model& model, std::int32_t row);

// RecalcAirway for rows 1 to AirwayCount, in row order.
void RecalcAllAirways(Model& model);

// The friction part of an airway's resistance alone (no services reduction, no floor, no
// preset resistance, no division by parallel airways), as a double. It gives a value for a
// custom-resistance airway too. It reads the airway as RecalcAirway would bring it up to date
// (presets, height of a circular airway, length from the end points) without writing to it.
// 0 for a row outside 1..MaxAirways.
double FrictionResistance(const Model& model, std::int32_t row);

// Area of an airway from its stored Height and Width as the orifice calculator takes it:
// Height x Width, the circle of diameter Width for a circular airway, or Width itself for
// area entry. The services reduction does not apply here.
float OrificeAirwayArea(const Airway& airway);

// Resistance of a regulator opening of orificeArea m2 in an airway of airwayArea m2,
// Ns2/m8: (1 / (Ao x 0.65) - 1 / A)^2 x 0.6. The constants are fixed; the network density
// does not enter. Both areas must be above 0 (the caller refuses a zero or empty answer);
// otherwise the result is not finite.
double OrificeResistance(double orificeArea, double airwayArea);

// One row of the shock loss table: a fitting and its equivalent length in whole metres.
struct ShockLossRow {
    const char* Name;
    std::int16_t Metres;
};

inline constexpr int ShockLossRowCount = 20;

inline constexpr std::array<ShockLossRow, ShockLossRowCount> ShockLossTable{{
    {"Bend, acute, round", 1},
    {"Bend, acute, sharp", 45},
    {"Bend, right, round", 1},
    {"Bend, right, sharp", 20},
    {"Bend, obtuse, round", 1},
    {"Bend, obtuse, sharp", 5},
    {"Contraction, gradual", 1},
    {"Contraction, abrupt", 3},
    {"Expansion, gradual", 1},
    {"Expansion, abrupt", 6},
    {"Splitting, straight branch", 10},
    {"Splitting, deflected branch", 60},
    {"Junction, straight branch", 20},
    {"Junction, deflected branch", 10},
    {"Obstruction 20% area", 30},
    {"Obstruction 40% area", 150},
    {"Doorway, open", 20},
    {"Overcast airway", 20},
    {"Inlet", 6},
    {"Discharge", 20},
}};

// What the user has set on one row of the shock calculator: the tick and the count (the
// numeric value of the count box's text).
struct ShockLossEntry {
    bool Ticked = false;
    double Count = 0;
};

// The row's equivalent length as the calculator shows it: metres times the display length
// factor, held in single precision, then rounded to the number of decimals of the length
// unit's format (one for "0.0"), as its text form reads back.
double ShownShockLength(std::int16_t metres, float lengthFactor, int decimals);

// The shock total of the calculator, in display length units: the sum over the twenty rows of
// tick x count x shown length, the running sum held in single precision. shownLength turns a
// row's metres into its shown length (ShownShockLength with the unit's factor and format).
float ShockTableTotal(const std::array<ShockLossEntry, ShockLossRowCount>& rows,
                      const std::function<double(std::int16_t metres)>& shownLength);

} // namespace karvane
