// The fan model: free delivery point and bad curves, working curves and their slots, the
// straight-line reading on and off the curve, and efficiency.
#include <gtest/gtest.h>

#include "sim_networks.h"
#include "simulate/fan_model.h"

namespace karvane::simulate {
namespace {

using simtest::AddFan;
using simtest::NewModel;
using simtest::SetStraightFan;
using simtest::Surface;
using simtest::Underground;

TEST(CheckFanCurves, ExtendsTheLastStretchToZeroPressureAndReportsTheFirstBadCurve) {
    auto model = NewModel();
    ui::ScriptedUserInterface ui;
    SetStraightFan(*model, 1, 1000, 10, 0, 10, 50); // P = 1000 - 10 Q at 0..90, total 50 above
    // Repeated flows at the end: point 8 is the last that differs from point 10.
    SetStraightFan(*model, 2, 600, 5, 10, 10);
    model->Fans[2].FanQ[9] = model->Fans[2].FanQ[10] = 90;
    model->Fans[2].FanPStatic[9] = model->Fans[2].FanPStatic[10] = 100;
    // A flat static column and a falling total column: the extension follows the total.
    SetStraightFan(*model, 3, 0, 0, 0, 10);
    for (int p = 1; p <= 10; ++p) model->Fans[3].FanPTotal[p] = 1000 - 10 * model->Fans[3].FanQ[p];
    // A horizontal last stretch: the free delivery flow keeps its value.
    SetStraightFan(*model, 4, 1000, 10, 0, 10);
    model->Fans[4].FanPStatic[10] = model->Fans[4].FanPStatic[9];
    model->Fans[4].FanQ[11] = 123;
    model->Fans[4].FanPStatic[11] = 55; // reset to the negative total at point 10
    // An unused slot is skipped whatever it holds.
    model->Fans[5].FanPStatic[1] = 7;
    CheckFanCurves(*model, ui);

    EXPECT_TRUE(ui.Transcript.empty());
    EXPECT_FLOAT_EQ(model->Fans[1].FanQ[11], 100.0f);
    EXPECT_FLOAT_EQ(model->Fans[1].FanPStatic[11], -150.0f); // minus the total at point 10
    EXPECT_EQ(model->Fans[1].FanPTotal[11], 0.0f);
    // From point 8 (80, 200): s = -(100 - 200) / (90 - 80) = 10, and 100 / 10 + 90.
    EXPECT_FLOAT_EQ(model->Fans[2].FanQ[11], 100.0f);
    EXPECT_FLOAT_EQ(model->Fans[3].FanQ[11], 100.0f);
    EXPECT_FLOAT_EQ(model->Fans[3].FanPStatic[11], -100.0f);
    EXPECT_EQ(model->Fans[4].FanQ[11], 123.0f);
    EXPECT_EQ(model->Fans[4].FanPStatic[11], -model->Fans[4].FanPTotal[10]);
    EXPECT_EQ(model->Fans[5].FanQ[11], 0.0f);

    // A flat curve, and a curve of one flow throughout, are invalid; the scan stops there.
    for (int kind = 0; kind < 2; ++kind) {
        auto m = NewModel();
        ui::ScriptedUserInterface u;
        SetStraightFan(*m, 2, 500, kind == 0 ? 0.0f : 5.0f, 10, kind == 0 ? 10.0f : 0.0f);
        SetStraightFan(*m, 3, 1000, 10, 0, 10);
        m->Fans[2].FanPStatic[11] = 9;
        CheckFanCurves(*m, u);
        EXPECT_EQ(u.Texts("Message"), std::vector<std::string>{"Invalid Fan Curve : Fan curve # 2"});
        EXPECT_EQ(u.Transcript[0].Title, ProgramName);
        EXPECT_EQ(m->Fans[2].FanPStatic[11], 0.0f); // reset before the curve was found bad
        EXPECT_EQ(m->Fans[3].FanQ[11], 0.0f);       // later fans are not checked
    }
}

TEST(WorkingCurves, SlotsByFanAndCodeScaledForParallelAndSeries) {
    auto model = NewModel();
    ui::ScriptedUserInterface ui;
    SetStraightFan(*model, 1, 1000, 10, 0, 10);
    SetStraightFan(*model, 2, 500, 5, 0, 10);
    const auto s = Surface(100);
    const auto u = Underground(100);
    AddFan(*model, u, s, 1, 1);          // 101
    AddFan(*model, u, s, 1, 1, 1, true); // 101: shares the slot
    AddFan(*model, u, s, 1, 1, 3);       // 301
    AddFan(*model, u, s, 1, 1, 3, true); // 103
    AddFan(*model, u, s, 1, 1, 0);       // no count: one fan, 101
    AddFan(*model, u, s, 1, 2, 3);       // another fan: its own slot
    AddFan(*model, u, s, 1, -1);         // fixed pressure
    simtest::AddAirway(*model, u, s, 1); // no fan
    ASSERT_TRUE(BuildWorkingCurves(*model, ui));
    const auto& link = model->Run.FanLink;
    EXPECT_EQ(model->Run.WorkFanCount, 4);
    const std::vector<float> expected{0, 1, 1, 2, 3, 1, 4, -1, 0};
    for (int r = 1; r <= 8; ++r) EXPECT_EQ(link[r], expected[r]) << r;
    const auto& w = model->Run.WorkFans;
    EXPECT_EQ(w[2].Code, 301);
    EXPECT_EQ(w[3].Code, 103);
    for (int p = 1; p <= 11; ++p) {
        EXPECT_EQ(w[2].Q[p], 3 * model->Fans[1].FanQ[p]);
        EXPECT_EQ(w[2].PStatic[p], model->Fans[1].FanPStatic[p]);
        EXPECT_EQ(w[3].Q[p], model->Fans[1].FanQ[p]);
        EXPECT_EQ(w[3].PStatic[p], 3 * model->Fans[1].FanPStatic[p]);
        EXPECT_EQ(w[3].PTotal[p], 3 * model->Fans[1].FanPTotal[p]);
    }
    EXPECT_EQ(FanCode(model->Airways[5]), 101);

    // More distinct fan groupings than the database has rows cannot be run.
    model->Fans.resize(3); // MaxFans 2
    model->SimFail = RunResult::Good;
    EXPECT_FALSE(BuildWorkingCurves(*model, ui));
    EXPECT_EQ(model->SimFail, RunResult::Failed);
    ASSERT_EQ(ui.Transcript.size(), 1u);
    EXPECT_EQ(ui.Transcript[0].Title, "Fans Error");
}

TEST(ReadFanCurve, StraightLinesOnTheCurveAndFixedValuesOffIt) {
    auto model = NewModel();
    ui::ScriptedUserInterface ui;
    SetStraightFan(*model, 1, 1200, 10, 20, 10, 100); // flows 20..110, static 1000..100
    CheckFanCurves(*model, ui);                       // free delivery at 120, static -200 there
    const auto u = Underground(100);
    const auto s = Surface(100);
    const std::int32_t row = AddFan(*model, u, s, 1, 1);
    const std::int32_t fixed = AddFan(*model, u, s, 1, -1);
    ASSERT_TRUE(BuildWorkingCurves(*model, ui));

    struct Reading {
        std::int16_t Fan;
        float Q, Fixed;
        int Range;
        float Pressure, Slope;
    };
    const float freeDelivery = model->Run.WorkFans[1].Q[11];
    const Reading readings[] = {
        {1, 20, 0, FanOnCurve, 1000, -10}, // exactly point 1: on the curve
        {1, 45, 0, FanOnCurve, 750, -10},
        // Beyond point 10 the line runs to point 11, whose static pressure is minus the total
        // pressure at point 10: from (110, 100) to (120, -200).
        {1, 115, 0, FanOnCurve, -50, -30},
        {1, 19, 0, FanStall, 1000, -50},
        {1, -5, 0, FanStall, 1000, -50}, // backwards through the fan
        {1, freeDelivery, 0, FanNegate, 0, -50},
        {-1, 30, 321, FanOnCurve, 321, -1}, // a fixed pressure
    };
    for (const Reading& want : readings) {
        const FanReading r = ReadFanCurve(*model, want.Fan, want.Q, want.Fan < 0 ? fixed : row, want.Fixed);
        EXPECT_EQ(r.FanRange, want.Range) << want.Q;
        EXPECT_FLOAT_EQ(r.FanPressure, want.Pressure) << want.Q;
        EXPECT_FLOAT_EQ(r.FanSlope, want.Slope) << want.Q;
    }

    // A combo curve reads halfway between the static and the total curve.
    model->Airways[row].CurveFraction = 50;
    EXPECT_FLOAT_EQ(ReadFanCurve(*model, 1, 45.0f, row, 0).FanPressure, 800.0f);
    EXPECT_FLOAT_EQ(CurvePressure(*model, 3, 1, row), 850.0f);
    EXPECT_FLOAT_EQ(DatabaseCurvePressure(*model, 3, 1, row), 850.0f);
    EXPECT_EQ(DatabaseCurvePressure(*model, 3, 77, row), 0.0f); // no such fan
}

TEST(FanEfficiency, ReadOnTheDatabaseCurvePerFanWithTheFactorAsFallback) {
    auto model = NewModel();
    SetStraightFan(*model, 1, 1000, 10, 10, 10);
    for (int p = 1; p <= 10; ++p) model->Fans[1].FanEff[p] = static_cast<std::int16_t>(50 + 3 * p);
    SetStraightFan(*model, 2, 1000, 10, 10, 10); // no efficiency curve
    model->Set.AirEfficiency = 0.75f;
    const auto u = Underground(100);
    const auto s = Surface(100);
    const std::int32_t one = AddFan(*model, u, s, 1, 1);
    const std::int32_t three = AddFan(*model, u, s, 1, 1, 3);
    const std::int32_t series = AddFan(*model, u, s, 1, 1, 3, true);
    const std::int32_t bare = AddFan(*model, u, s, 1, 2);
    const std::int32_t fixed = AddFan(*model, u, s, 1, -1);

    model->Airways[one].Quantity = 25; // halfway between points 2 (20, 56) and 3 (30, 59)
    EXPECT_FLOAT_EQ(FanEfficiencyAt(*model, one), 57.5f);
    model->Airways[three].Quantity = 75; // 25 per fan
    EXPECT_FLOAT_EQ(FanEfficiencyAt(*model, three), 57.5f);
    model->Airways[series].Quantity = 25;
    EXPECT_FLOAT_EQ(FanEfficiencyAt(*model, series), 57.5f);
    model->Airways[one].Quantity = 500;
    EXPECT_EQ(FanEfficiencyAt(*model, one), 80.0f);
    model->Airways[one].Quantity = 100; // exactly point 10
    EXPECT_EQ(FanEfficiencyAt(*model, one), 80.0f);
    model->Airways[one].Quantity = 1;
    EXPECT_EQ(FanEfficiencyAt(*model, one), 53.0f);
    EXPECT_FLOAT_EQ(FanEfficiencyAt(*model, bare), 75.0f);
    EXPECT_FLOAT_EQ(FanEfficiencyAt(*model, fixed), 75.0f);
}

} // namespace
} // namespace karvane::simulate
