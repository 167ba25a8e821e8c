// Static and total fan pressures from the exit diameter.
#include <gtest/gtest.h>

#include <cmath>

#include "engineering/fan_conversion.h"

namespace karvane {
namespace {

TEST(FanConversion, VelocityPressureAndTheWorkedExample) {
    EXPECT_NEAR(FanExitArea(2), 3.14159, 1e-5);
    EXPECT_NEAR(VelocityPressure(30.4, FanExitArea(2), 1.2), 56.18, 0.01);
    EXPECT_EQ(VelocityPressure(30.4, 0, 1.2), 0);
    EXPECT_EQ(VelocityPressure(30.4, -1, 1.2), 0);

    FanRecord fan;
    fan.FanDiam = 2;
    for (int p = 1; p <= 10; ++p) {
        fan.FanQ[p] = 30.4f;
        fan.FanPTotal[p] = 1000;
    }
    EstimateStaticCurve(fan, 1.2);
    EXPECT_EQ(fan.FanPStatic[1], 943); // 943.82, rounded down
    // Without diameter the total curve becomes the static curve, and no total is estimated.
    fan.FanDiam = 0;
    EstimateStaticCurve(fan, 1.2);
    EXPECT_EQ(fan.FanPStatic[10], 1000);
    EXPECT_FALSE(EstimateTotalCurve(fan, 1.2));
    EXPECT_EQ(fan.FanPTotal[10], 1000);
    // An empty slot is left alone.
    FanRecord empty;
    EXPECT_TRUE(EstimateTotalCurve(empty, 1.2));
    EXPECT_EQ(empty.FanPTotal[1], 0);
}

TEST(FanConversion, StaticToTotalAndBackWithinSinglePrecision) {
    const float flows[] = {0.0f, 0.5f, 12.25f, 30.4f, 155.0f, 480.0f};
    const double diams[] = {0.6, 1.0, 2.0, 3.35};
    const double densities[] = {1.2, 1.05, 1.31};
    for (double d : diams)
        for (double rho : densities)
            for (float q : flows)
                for (float ps : {0.0f, 250.0f, 1234.5f, 4400.0f}) {
                    const float pt = TotalFromStatic(ps, q, d, rho);
                    const float back = StaticFromTotal(pt, q, d, rho);
                    EXPECT_NEAR(back, ps, 2 * std::numeric_limits<float>::epsilon() * std::max(1.0f, std::fabs(pt)))
                        << "q " << q << " d " << d << " rho " << rho;
                }
}

} // namespace
} // namespace karvane
