// The fan operating model: how a run reads a fan's pressure and slope at a flow from its curve.
// Curves of the fan database are checked and completed with a free delivery point, copied into
// a working table scaled for fans in parallel or in series, and read by straight lines between
// points; efficiency is read on the database curve for the power figures.
#pragma once

#include <cstdint>

#include "model/model.h"
#include "ui/user_interface.h"

namespace karvane::simulate {

// Where a flow lies on a curve.
inline constexpr std::int16_t FanOnCurve = 0;
inline constexpr std::int16_t FanStall = -1; // below point 1 ("Stall")
inline constexpr std::int16_t FanNegate = 1; // at or beyond point 11 ("Negate")
// Slope given off the curve, Pa per m3/s, and to a fixed pressure airway.
inline constexpr float OffCurveSlope = -50.0f;
inline constexpr float FixedPressureSlope = -1.0f;
// FanLink of a fixed pressure airway.
inline constexpr std::int32_t FixedPressureSlot = -1;

// One reading of a curve: pressure, slope (negative on a falling curve) and the range flag.
struct FanReading {
    float FanPressure = 0;
    float FanSlope = 0;
    std::int16_t FanRange = FanOnCurve;
};

// Completes point 11 of every fan in use (name not blank): the last stretch of the curve
// extended to zero pressure. The first curve found bad ends the scan with
// "Invalid Fan Curve : Fan curve # <n>"; the run goes on.
void CheckFanCurves(Model& model, ui::UserInterface& ui);

// The fan code of an airway with a fan: 100 x NoOfFans + 1 in parallel, 100 + NoOfFans in
// series, a count below 1 counting as one fan.
std::int32_t FanCode(const Airway& airway);

// Fills FanLink of every airway (working slot, -1 fixed pressure, 0 none) and the working
// curve table, one slot per distinct fan number and code. Returns false, after telling the
// user and failing the run, when the network needs more slots than the fan table has rows.
bool BuildWorkingCurves(Model& model, ui::UserInterface& ui);

// Pressure of working curve `slot` at `point` as the airway reads it: the static curve, the
// total curve or the mix given by its CurveFraction.
float CurvePressure(const Model& model, std::int32_t point, std::int32_t slot, std::int32_t airway);
// The same on the fan database curve of fan `fan` (0 for a fan outside the database).
float DatabaseCurvePressure(const Model& model, std::int32_t point, std::int32_t fan, std::int32_t airway);

// Reads working curve `slot` at `flow` for `airway`. `presetPressure` is the airway's Pressure,
// which a fixed pressure airway (slot -1) keeps as its reading.
FanReading ReadFanCurve(const Model& model, std::int32_t slot, float flow, std::int32_t airway, float presetPressure);

// Efficiency in percent of the airway's fan at its present Quantity, read on the database
// curve; the network's air power efficiency factor when the airway has no fan or its fan no
// efficiency curve.
float FanEfficiencyAt(const Model& model, std::int32_t airway);

// The database record of fan `fan`, or nothing when the number lies outside the database.
const FanRecord* FanOf(const Model& model, std::int32_t fan);

} // namespace karvane::simulate
