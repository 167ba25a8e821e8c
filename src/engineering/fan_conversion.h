// The conversion between a fan's static and total pressure: the total pressure is the static
// pressure plus the velocity pressure of the air leaving the fan's exit, worked from the exit
// diameter, the flow and the air density.
#pragma once

#include "model/network.h"

namespace karvane {

// pi as the fan estimates take it.
inline constexpr double FanPi = 3.141592654;

// The exit area of a fan of diameter `diam` (m): diam^2 x pi / 4, m2.
double FanExitArea(double diam);
// The velocity pressure of a flow q (m3/s) through an exit of area `area` at `density`:
// (q / area)^2 x density / 2, Pa; 0 when the area is 0 or below.
double VelocityPressure(double q, double area, double density);

// Total pressure from static and back, unrounded, at one curve point, as Singles.
float TotalFromStatic(float staticP, float q, double diam, double density);
float StaticFromTotal(float totalP, float q, double diam, double density);

// The estimates of the fan database editor, over points 1 to 10 of one fan, each pressure
// rounded down to a whole number. Static from total: a fan without diameter gets its total
// curve as static curve. Total from static: a fan whose flow is 0 at points 1 and 10 is left
// alone (true); a fan with flow and no diameter is refused (false) and its curve stays.
void EstimateStaticCurve(FanRecord& fan, double density);
bool EstimateTotalCurve(FanRecord& fan, double density);

} // namespace karvane
