// Balancing against closed-form answers: parallel airways sharing flow as 1 / sqrt(R), a fan
// at the operating point of a straight-line curve, a fixed pressure, a stalled and a negated
// fan; the pressures each run stores; the convergence question and the progress figures.
#include <gtest/gtest.h>

#include <cmath>

#include "sim_networks.h"
#include "simulate/balancing.h"

namespace karvane::simulate {
namespace {

using namespace simtest;

// An intake shaft to A, a direct drive A-B (row 2) beside a way round through C (rows 3 and
// 4), and an exhaust shaft from B (row 5), whose kind the test chooses.
struct Loop {
    std::unique_ptr<Model> model = NewModel();
    Point S1 = Surface(100), A = Underground(100), B = Underground(200), C = Underground(150, 50), S2 = Surface(200);
};

Loop ParallelLoop(float r1, float r2, float r3, float r4, float r5) {
    Loop n;
    AddAirway(*n.model, n.S1, n.A, r1);
    AddAirway(*n.model, n.A, n.B, r2);
    AddAirway(*n.model, n.A, n.C, r3);
    AddAirway(*n.model, n.C, n.B, r4);
    AddAirway(*n.model, n.B, n.S2, r5);
    return n;
}

// The loop with a fan on the exhaust whose static curve is the straight line
// P = p0 - slope x Q from flow q0 in steps of 10, run to the end.
Loop FanLoop(float scale, float p0, float slope, float q0, WatchingUi& ui) {
    Loop n = ParallelLoop(0.02f * scale, 0.2f * scale, 0.1f * scale, 0.1f * scale, 0.03f * scale);
    SetStraightFan(*n.model, 1, p0, slope, q0, 10);
    n.model->Airways[5].FanNumber = 1;
    n.model->Airways[5].NoOfFans = 1;
    RunAirflow(*n.model, ui);
    return n;
}

TEST(Balance, ParallelAirwaysShareAFixedFlowAsOneOverTheRootOfTheirResistance) {
    Loop n = ParallelLoop(0.01f, 1.0f, 2.0f, 2.0f, 0.01f);
    Model& m = *n.model;
    m.Airways[5].BranchCode |= bc::FixedFlow;
    m.Airways[5].Quantity = 100;
    WatchingUi ui;
    RunAirflow(m, ui);
    ASSERT_EQ(m.SimFail, 0) << ui.Texts().size();
    EXPECT_EQ(m.SimValid, -1);
    EXPECT_NEAR(AirwayNo(m, 1).Quantity, 100.0f, 1e-3);
    EXPECT_NEAR(AirwayNo(m, 2).Quantity, 200.0f / 3, 2e-3); // R 1 against R 4: 2 : 1
    EXPECT_NEAR(AirwayNo(m, 3).Quantity, 100.0f / 3, 2e-3);
    EXPECT_NEAR(AirwayNo(m, 4).Quantity, 100.0f / 3, 2e-3);
    EXPECT_EQ(AirwayNo(m, 5).Quantity, 100.0f); // held

    // Pressures: a plain airway loses R Q^2; the fixed flow holds the closing pressure of
    // its loop; node pressures run from the surface, down the intake and back up to 0.
    const double q2 = AirwayNo(m, 2).Quantity;
    EXPECT_FLOAT_EQ(AirwayNo(m, 1).Pressure, -100.0f);
    EXPECT_NEAR(AirwayNo(m, 5).Pressure, 100 + q2 * q2 + 100, 0.5);
    EXPECT_EQ(AirwayNo(m, 1).FromNodeP, 0.0f);
    EXPECT_FLOAT_EQ(AirwayNo(m, 1).ToNodeP, -100.0f);
    EXPECT_FLOAT_EQ(AirwayNo(m, 2).FromNodeP, -100.0f);
    EXPECT_NEAR(AirwayNo(m, 2).ToNodeP, -100 - q2 * q2, 0.5);
    EXPECT_NEAR(AirwayNo(m, 4).ToNodeP, AirwayNo(m, 2).ToNodeP, 0.5); // loops close
    EXPECT_NEAR(AirwayNo(m, 5).ToNodeP, 0.0f, 0.5);
    EXPECT_LT(AirwayNo(m, 2).ToNodeP, AirwayNo(m, 1).ToNodeP);
}

TEST(Balance, OneFanSettlesAtTheOperatingPointOfItsStraightLineCurve) {
    // Total resistance 0.02 + 0.2 / 4 + 0.03 = 0.1 against P = 1000 - 10 Q:
    // 0.1 Q^2 + 10 Q - 1000 = 0, Q = 50 (sqrt 5 - 1).
    WatchingUi ui;
    Loop n = FanLoop(1, 1000, 10, 0, ui);
    Model& m = *n.model;
    ASSERT_EQ(m.SimFail, 0);
    const double q = 50.0 * (std::sqrt(5.0) - 1.0);
    EXPECT_NEAR(AirwayNo(m, 5).Quantity, q, 2e-3);
    EXPECT_NEAR(AirwayNo(m, 2).Quantity, q / 2, 2e-3);
    EXPECT_NEAR(AirwayNo(m, 3).Quantity, q / 2, 2e-3);
    EXPECT_NEAR(AirwayNo(m, 5).Pressure, 1000 - 10 * q, 0.05); // its operating pressure
    EXPECT_NEAR(AirwayNo(m, 1).ToNodeP, -0.02 * q * q, 0.05);
    EXPECT_NEAR(AirwayNo(m, 5).FromNodeP, -0.07 * q * q, 0.1);
    EXPECT_NEAR(AirwayNo(m, 5).ToNodeP, 0.0, 0.1); // the fan lifts the air back to the surface
    EXPECT_EQ(m.Fans[1].FanQ[11], 100.0f);         // completed by the run
}

TEST(Balance, AFixedPressureDrivesItsLoopAtTheRootOfPressureOverResistance) {
    Loop n = ParallelLoop(0.02f, 0.2f, 0.1f, 0.1f, 0.03f);
    Model& m = *n.model;
    m.Airways[5].FanNumber = -1;
    m.Airways[5].Pressure = 400;
    WatchingUi ui;
    RunAirflow(m, ui);
    ASSERT_EQ(m.SimFail, 0);
    EXPECT_NEAR(AirwayNo(m, 5).Quantity, std::sqrt(4000.0), 2e-3);
    EXPECT_EQ(AirwayNo(m, 5).Pressure, 400.0f);
}

TEST(Balance, AStalledFanHoldsItsFirstPointAndANegatedFanGivesNothing) {
    // Resistance 1 against a curve that starts at 80 m3/s with 1000 Pa: the fan cannot reach
    // its curve and settles at sqrt(1000) on the pressure of point 1.
    {
        WatchingUi ui;
        Loop n = FanLoop(10, 1400, 5, 80, ui);
        Model& m = *n.model;
        ASSERT_EQ(m.SimFail, 0);
        EXPECT_NEAR(AirwayNo(m, 5).Quantity, std::sqrt(1000.0), 2e-3);
        EXPECT_EQ(AirwayNo(m, 5).Pressure, StalledFanPressure);
        // The node pressures count the stall at the first point's static pressure.
        EXPECT_NEAR(AirwayNo(m, 5).ToNodeP, 0.0, 0.1);
    }
    // A fixed pressure of 5000 Pa pushes 223.6 m3/s through a fan whose free delivery is 100.
    {
        auto m = NewModel();
        SetStraightFan(*m, 1, 1000, 10, 0, 10);
        AddAirway(*m, Surface(100), Underground(100), 0.02f);
        const std::int32_t fixed = AddFan(*m, Underground(100), Underground(200), 0.01f, -1);
        m->Airways[fixed].Pressure = 5000;
        AddFan(*m, Underground(200), Surface(200), 0.07f, 1);
        WatchingUi ui;
        RunAirflow(*m, ui);
        ASSERT_EQ(m->SimFail, 0);
        EXPECT_NEAR(AirwayNo(*m, 3).Quantity, std::sqrt(50000.0), 2e-3);
        EXPECT_EQ(AirwayNo(*m, 3).Pressure, NegatedFanPressure);
        EXPECT_EQ(AirwayNo(*m, 2).Pressure, 5000.0f);
        EXPECT_NEAR(AirwayNo(*m, 3).ToNodeP, 0.0, 0.5);
    }
}

TEST(Balance, TheConvergenceQuestionAndWhatEitherAnswerLeaves) {
    EXPECT_EQ(ConvergencePercent(100, 13), 87);
    EXPECT_EQ(ConvergencePercent(1000, 1), 99);
    EXPECT_EQ(ConvergencePercent(100, 71), 29);
    EXPECT_EQ(ConvergencePercent(0, 0), 100);
    EXPECT_EQ(ConvergenceQuestion(87),
              "Your Network only has a convergence of 87%\nDo you wish to keep on simulating ?");
    EXPECT_EQ(WorstCorrectionText(0.056f, '.'), "0.05 m3/s");
    EXPECT_EQ(WorstCorrectionText(0.29f, '.'), "0.29 m3/s");
    EXPECT_EQ(WorstCorrectionText(12.3456f, ','), "12,34 m3/s");

    // One pass allowed: the loop is still open, the fixed flow's mesh never is: 1 of 2.
    Loop n = ParallelLoop(0.01f, 1.0f, 2.0f, 2.0f, 0.01f);
    Model& m = *n.model;
    m.Airways[5].BranchCode |= bc::FixedFlow;
    m.Airways[5].Quantity = 100;
    m.Set.MaxIter = 1;
    WatchingUi ui;
    ui.Answers = {ui::Answer::Yes, ui::Answer::No};
    RunAirflow(m, ui);
    const auto asked = ui.Texts("Ask");
    ASSERT_EQ(asked.size(), 2u); // Yes gave one more allowance of passes
    EXPECT_EQ(asked[0], ConvergenceQuestion(50));
    EXPECT_EQ(ui.Transcript[0].Title, "Convergence Warning");
    EXPECT_EQ(ui.Attempts, (std::vector<std::string>{"", "", "1", "1"}));
    ASSERT_EQ(ui.Errors.size(), 4u);
    // The user accepted a network that did not settle: the run stores its flows.
    EXPECT_EQ(m.SimFail, 0);
    EXPECT_EQ(m.SimValid, -1);
    const float q2 = AirwayNo(m, 2).Quantity, q3 = AirwayNo(m, 3).Quantity;
    EXPECT_NEAR(q2 + q3, 100.0f, 1e-3); // continuity holds after any pass
    EXPECT_GT(std::fabs(q2 - 200.0f / 3), 1e-3);
}

TEST(Balance, CoarseAllowedErrorStopsAfterOnePassAndAnUnchangedNetworkBalancesAtOnce) {
    WatchingUi ui;
    Loop n = FanLoop(1, 1000, 10, 0, ui);
    Model& m = *n.model;
    ASSERT_EQ(m.SimFail, 0);
    // Run again on the balanced result: the first pass corrects nothing beyond the error.
    WatchingUi again;
    RunAirflow(m, again);
    EXPECT_EQ(again.Attempts, (std::vector<std::string>{"", ""}));
    EXPECT_TRUE(again.Texts("Ask").empty());

    Loop c = ParallelLoop(0.02f, 0.2f, 0.1f, 0.1f, 0.03f);
    SetStraightFan(*c.model, 1, 1000, 10, 0, 10);
    c.model->Airways[5].FanNumber = 1;
    c.model->Set.AllowErr = 5.0f;
    WatchingUi coarse;
    RunAirflow(*c.model, coarse);
    EXPECT_EQ(c.model->SimFail, 0);
    EXPECT_NEAR(AirwayNo(*c.model, 5).Quantity, 61.8, 10.0);
}

} // namespace
} // namespace karvane::simulate
