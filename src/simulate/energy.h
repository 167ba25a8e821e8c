// The energy figures of an airway and of the network: air power, the velocity pressure at a
// fan's outlet, the electrical input power, their yearly cost, and the absolute and barometric
// pressure at a node. Pure functions of what a run stored; nothing here is kept.
#pragma once

#include <cstdint>
#include <optional>

#include "model/model.h"

namespace karvane::simulate {

// pi of the fan outlet area.
inline constexpr double FanPi = 3.141592654;
inline constexpr double HoursPerYear = 24.0 * 365.0;
inline constexpr double Gravity = 9.81;

// The working pressure of an airway for the power figures: its Pressure, with a stalled fan
// counted at the static pressure of its first curve point and a negated fan at 0.
double WorkingPressure(const Model& model, std::int32_t row);

// Q^3 x Resistance / 1000, kW.
double AirPower(const Model& model, std::int32_t row);

// Velocity pressure at the outlet of the airway's fans, Pa: (Q / A)^2 x Density / 2 with A
// the outlet area of all its fans; 0 for an airway without a fan, a stalled or negated fan,
// or a fan without a diameter.
double FanVelocityPressure(const Model& model, std::int32_t row);

// Electrical input power, kW: (P + (1 - CurveFraction / 100) x velocity pressure) x Q / 1000
// over the efficiency. Only an airway with a fan or a fixed pressure, or a fixed flow airway
// that puts pressure in, has one; a zero efficiency gives none.
std::optional<double> InputPower(const Model& model, std::int32_t row);

// Yearly cost of the air power, $: AirPower x PowerCost x 24 x 365 / AirEfficiency; none when
// the efficiency factor is 0.
std::optional<double> AirCost(const Model& model, std::int32_t row);

// Yearly cost of the input power, $.
std::optional<double> InputCost(const Model& model, std::int32_t row);

// Absolute pressure of a node pressure p (Pa relative to the surface), kPa.
double NodeAbsPressure(const Model& model, double p);

// Barometric pressure at a node of level z, kPa: the absolute pressure plus the weight of the
// air column down from the level of surface pressure (SurfaceRL, or the From end of row 1 when
// that is unset).
double NodeBarPressure(const Model& model, double p, std::int32_t z);

// The network's running sums, single precision, in SI (W for power).
struct NetworkFigures {
    float TotalFlow = 0;   // air entering from the surface, m3/s
    float AirPower = 0;    // sum of Resistance x Quantity^3, W
    float InputPower = 0;  // fed by fans, fixed pressures and fixed flows, W
    float TotalLength = 0; // m
    std::int32_t FanCount = 0;
    std::int32_t AirwayCount = 0;
};

// One pass over all airways. A term whose arithmetic fails (a zero efficiency, an overflow)
// leaves its sum as it was.
NetworkFigures NetworkTotals(const Model& model);

} // namespace karvane::simulate
