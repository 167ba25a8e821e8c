// Energy figures of an airway and the network totals of the summary, worked by hand.
#include <gtest/gtest.h>

#include "sim_networks.h"
#include "simulate/energy.h"
#include "simulate/pressures.h"
#include "simulate/summary.h"

namespace karvane::simulate {
namespace {

using namespace simtest;

// Fan 1 with an efficiency of 50 % all along its curve, diameter 2 m; fan 2 without an
// efficiency curve, first point 800 Pa static.
std::unique_ptr<Model> WithFans() {
    auto m = NewModel();
    SetStraightFan(*m, 1, 1000, 10, 0, 10, 0, 2.0f);
    for (int p = 1; p <= 10; ++p) m->Fans[1].FanEff[p] = 50;
    SetStraightFan(*m, 2, 1000, 2.5f, 80, 10);
    return m;
}

std::int32_t Row(Model& m, float q, float r, float pressure = 0, std::int16_t fan = 0, std::int16_t fans = 1,
                 std::int32_t bits = 0) {
    const std::int32_t row = AddAirway(m, Underground(100), Underground(200), r, bits);
    Airway& a = m.Airways[row];
    a.Quantity = q;
    a.Pressure = pressure;
    a.FanNumber = fan;
    a.NoOfFans = fans;
    return row;
}

TEST(Energy, PowerAndCostOfOneAirway) {
    auto m = WithFans();
    const std::int32_t plain = Row(*m, 10, 0.5f);
    EXPECT_DOUBLE_EQ(AirPower(*m, plain), 0.5);
    EXPECT_NEAR(*AirCost(*m, plain), 0.5 * 0.08 * 8760 / 0.8, 1e-4); // settings are Singles
    EXPECT_FALSE(InputPower(*m, plain));
    EXPECT_FALSE(InputCost(*m, plain));
    EXPECT_EQ(FanVelocityPressure(*m, plain), 0.0);

    // Two fans in parallel of 2 m: outlet area 2 pi; the static curve adds the whole velocity
    // pressure, the total curve none.
    const std::int32_t fan = Row(*m, 20, 0.1f, 500, 1, 2);
    const double area = 2.0 * 2.0 * 3.141592654 / 4.0 * 2;
    const double pv = (20 / area) * (20 / area) * 1.2 / 2;
    EXPECT_NEAR(FanVelocityPressure(*m, fan), pv, 1e-6);
    EXPECT_NEAR(*InputPower(*m, fan), (500 + pv) * 20 / 1000 / 0.5, 1e-6);
    EXPECT_NEAR(*InputCost(*m, fan), (500 + pv) * 20 / 1000 / 0.5 * 0.08 * 8760, 1e-2);
    m->Airways[fan].CurveFraction = 100;
    EXPECT_NEAR(*InputPower(*m, fan), 20.0, 1e-9);
    m->Airways[fan].CurveFraction = 50;
    EXPECT_NEAR(*InputPower(*m, fan), (500 + pv / 2) * 20 / 1000 / 0.5, 1e-6);

    // A stalled fan counts at its first point's static pressure (one fan's worth), a negated
    // one at nothing, and neither has a velocity pressure.
    const std::int32_t stalled = Row(*m, 5, 0, StalledFanPressure, 2, 3, bc::FansInSeries);
    EXPECT_EQ(WorkingPressure(*m, stalled), 800.0);
    EXPECT_NEAR(*InputPower(*m, stalled), 800.0 * 5 / 1000 / 0.8, 1e-9);
    EXPECT_FLOAT_EQ(RowDrop(*m, stalled), 2400.0f); // but three fans' worth in the node pressures
    const std::int32_t negated = Row(*m, 5, 0.1f, NegatedFanPressure, 1, 1);
    EXPECT_EQ(WorkingPressure(*m, negated), 0.0);
    EXPECT_EQ(FanVelocityPressure(*m, negated), 0.0);
    EXPECT_FLOAT_EQ(RowDrop(*m, negated), -2.5f);
    m->Fans[1].FanDiam = 0;
    EXPECT_EQ(FanVelocityPressure(*m, fan), 0.0);

    // Fixed pressure and fixed flow airways work at the air power efficiency factor; a fixed
    // flow that takes pressure out costs nothing.
    const std::int32_t fixedP = Row(*m, 10, 0, 300, -1);
    EXPECT_NEAR(*InputPower(*m, fixedP), 3.75, 1e-9);
    const std::int32_t fixedQ = Row(*m, 5, 0, 200, 0, 1, bc::FixedFlow);
    EXPECT_NEAR(*InputPower(*m, fixedQ), 1.25, 1e-9);
    m->Set.AirEfficiency = 1.0f;
    EXPECT_NEAR(*InputPower(*m, fixedQ), 1.0, 1e-9); // the air power term alone
    m->Airways[fixedQ].Pressure = -200;
    EXPECT_FALSE(InputPower(*m, fixedQ));
    m->Set.AirEfficiency = 0.0f;
    EXPECT_FALSE(AirCost(*m, plain));
    EXPECT_FALSE(InputPower(*m, fixedP));
}

TEST(Summary, FiguresOfTheWholeNetwork) {
    auto m = WithFans();
    const std::int32_t intake = Row(*m, 30, 0.1f);
    m->Airways[intake].EntryKey = SurfaceKey;
    m->Airways[intake].Length = 100;
    m->Airways[Row(*m, -5, 2)].Length = 50; // backwards: its power counts negative
    const std::int32_t fans = Row(*m, 30, 0.01f, 400, 1, 3);
    m->Airways[fans].CurveFraction = 100;
    m->Airways[fans].Length = 20;
    Row(*m, 10, 0, 300, -1);                  // fixed pressure: input, but no fan
    Row(*m, 10, 0, -50, 0, 1, bc::FixedFlow); // takes pressure out: costs nothing
    Row(*m, 10, 0, 150, 0, 1, bc::FixedFlow); // 150 x 10 / 0.8
    Row(*m, 5, 0, StalledFanPressure, 2, 1);  // 5 x 800 / 0.8

    const NetworkFigures t = NetworkTotals(*m);
    EXPECT_FLOAT_EQ(t.TotalFlow, 30.0f);
    EXPECT_FLOAT_EQ(t.AirPower, 2700.0f - 250.0f + 270.0f);
    EXPECT_FLOAT_EQ(t.InputPower, 24000.0f + 3750.0f + 1875.0f + 5000.0f);
    EXPECT_FLOAT_EQ(t.TotalLength, 170.0f);
    EXPECT_EQ(t.FanCount, 4);

    const SummaryFigures s = Summarize(*m);
    EXPECT_EQ(s.TotalAirflow, 30.0);
    EXPECT_EQ(s.AirPowerKW, 2.0);
    EXPECT_EQ(s.InputPowerKW, 34.0);
    ASSERT_TRUE(s.Efficiency);
    EXPECT_NEAR(*s.Efficiency, 2720.0 / 34625.0, 1e-7);
    EXPECT_EQ(EfficiencyText(*s.Efficiency, '.'), "8 %");
    ASSERT_TRUE(s.MineResistance);
    EXPECT_NEAR(*s.MineResistance, 2720.0 / 27000.0, 1e-7);
    EXPECT_EQ(s.AnnualCost, 24265.0);
    EXPECT_EQ(AnnualCostText(s.AnnualCost, '.'), "$24,265");
    EXPECT_EQ(AnnualCostText(1234567, ','), "$1.234.567");
    EXPECT_EQ(s.NumberOfAirways, 7);
    EXPECT_EQ(s.NumberOfFans, 4);

    // A zero efficiency factor leaves the terms that need it out and the pass goes on.
    m->Set.AirEfficiency = 0;
    EXPECT_FLOAT_EQ(NetworkTotals(*m).InputPower, 24000.0f);

    // No surface entry, no flows: no resistance and no efficiency to show.
    auto still = NewModel();
    Row(*still, 0, 1);
    Row(*still, 0, 1);
    const SummaryFigures z = Summarize(*still);
    EXPECT_EQ(z.TotalAirflow, 0.0);
    EXPECT_FALSE(z.MineResistance);
    EXPECT_FALSE(z.Efficiency);
    EXPECT_EQ(z.AnnualCost, 0.0);
}

} // namespace
} // namespace karvane::simulate
