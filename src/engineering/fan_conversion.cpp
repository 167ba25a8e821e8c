// Static and total fan pressures.
#include "engineering/fan_conversion.h"

#include <cmath>

namespace karvane {
namespace {
constexpr int CurvePoints = 10;
}

double FanExitArea(double diam) { return diam * diam * FanPi / 4.0; }

double VelocityPressure(double q, double area, double density) {
    if (!(area > 0)) return 0;
    const double v = q / area;
    return v * v * density / 2.0;
}

float TotalFromStatic(float staticP, float q, double diam, double density) {
    return static_cast<float>(staticP + VelocityPressure(q, FanExitArea(diam), density));
}

float StaticFromTotal(float totalP, float q, double diam, double density) {
    return static_cast<float>(totalP - VelocityPressure(q, FanExitArea(diam), density));
}

void EstimateStaticCurve(FanRecord& fan, double density) {
    const double area = FanExitArea(fan.FanDiam);
    for (int p = 1; p <= CurvePoints; ++p)
        fan.FanPStatic[p] =
            static_cast<float>(std::floor(fan.FanPTotal[p] - VelocityPressure(fan.FanQ[p], area, density)));
}

bool EstimateTotalCurve(FanRecord& fan, double density) {
    if (fan.FanQ[1] == 0 && fan.FanQ[CurvePoints] == 0) return true;
    const double area = FanExitArea(fan.FanDiam);
    if (!(area > 0)) return false;
    for (int p = 1; p <= CurvePoints; ++p)
        fan.FanPTotal[p] =
            static_cast<float>(std::floor(VelocityPressure(fan.FanQ[p], area, density) + fan.FanPStatic[p]));
    return true;
}

} // namespace karvane
