// Balancing by Hardy Cross and by Newton's method. Closed forms (parallel airways sharing a
// fixed flow as 1 / sqrt(R), a fan at the operating point of its straight curve, a fixed
// pressure, a stalled and a negated fan, with the node pressures each run stores) and the awkward
// networks (a zero
// resistance, a rising stretch of a fan curve, a stalled or negated fan, a fixed flow no loop can
// carry, one mesh, an island) give the same flows, pressures, messages and error lists by either
// method; generated mines balance to the same answer, keep Kirchhoff's laws and give Hardy Cross
// nothing left to correct; the convergence question acts as it does for Hardy Cross.
#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "sim_networks.h"
#include "simulate/balancing.h"

namespace karvane::simulate {
namespace {

using namespace simtest;
using Builder = std::function<std::unique_ptr<Model>()>;

// What a run leaves, by lasting airway number.
struct Outcome {
    std::unique_ptr<Model> M;
    std::vector<std::string> Messages, Attempts;
    std::map<std::int32_t, const Airway*> ByNumber;
    int Passes = 0; // passes or iterations of the last balance, the closing one included
};

Outcome RunBy(const Builder& build, std::int16_t solver, int maxIter = 0) {
    Outcome o;
    o.M = build();
    o.M->Set.Solver = solver;
    if (maxIter > 0) o.M->Set.MaxIter = static_cast<std::int16_t>(maxIter);
    WatchingUi ui;
    ui.DefaultAnswer = ui::Answer::No;
    RunAirflow(*o.M, ui);
    o.Messages = ui.Texts();
    o.Attempts = ui.Attempts;
    for (const auto& a : ui.Attempts) o.Passes = a.empty() ? 1 : std::stoi(a) + 1;
    for (std::int32_t r = 1; r <= o.M->AirwayCount; ++r) o.ByNumber[o.M->Airways[r].AirwayNo] = &o.M->Airways[r];
    return o;
}

// The flow of an airway along the direction in which `like` stands: a run turns an airway to
// its flow, and a flow near zero may leave the two runs with the airway turned differently.
float FlowAlong(const Airway& a, const Airway& like) {
    const bool same = a.X1 == like.X1 && a.Y1 == like.Y1 && a.Z1 == like.Z1;
    return same ? a.Quantity : -a.Quantity;
}

bool Sentinel(float p) { return p == StalledFanPressure || p == NegatedFanPressure; }

// Same outcome of a run, flows within `flowTol`, pressures within `pressureTol` Pa.
void ExpectSameOutcome(const Outcome& h, const Outcome& n, double flowTol, double pressureTol) {
    EXPECT_EQ(n.M->SimFail, h.M->SimFail);
    EXPECT_EQ(n.M->SimValid, h.M->SimValid);
    EXPECT_EQ(ErrorLines(*n.M), ErrorLines(*h.M));
    EXPECT_EQ(n.Messages, h.Messages);
    ASSERT_EQ(n.ByNumber.size(), h.ByNumber.size());
    for (const auto& [number, ha] : h.ByNumber) {
        SCOPED_TRACE(number);
        const Airway& na = *n.ByNumber.at(number);
        ASSERT_TRUE(std::isfinite(na.Quantity) && std::isfinite(na.Pressure) && std::isfinite(na.ToNodeP));
        EXPECT_NEAR(FlowAlong(na, *ha), ha->Quantity, flowTol);
        if (Sentinel(ha->Pressure) || Sentinel(na.Pressure)) {
            EXPECT_EQ(na.Pressure, ha->Pressure);
        } else {
            EXPECT_NEAR(na.Pressure, ha->Pressure, pressureTol);
        }
        if (ha->ToNodeP == NodeNotReached) {
            EXPECT_EQ(na.ToNodeP, NodeNotReached);
        } else {
            EXPECT_NEAR(na.ToNodeP, ha->ToNodeP, pressureTol);
        }
    }
}

// An intake S1-A (airway 1), a drive A-B (2) beside a way round A-C (3) and C-B (4), and an
// exhaust B-S2 (5).
std::unique_ptr<Model> LoopNet(float r1, float r2, float r3, float r4, float r5) {
    auto m = NewModel();
    const Point S1 = Surface(100), A = Underground(100), B = Underground(200), C = Underground(150, 50),
                S2 = Surface(200);
    AddAirway(*m, S1, A, r1);
    AddAirway(*m, A, B, r2);
    AddAirway(*m, A, C, r3);
    AddAirway(*m, C, B, r4);
    AddAirway(*m, B, S2, r5);
    return m;
}

// The loop with a fixed flow of 100 up its exhaust, shared by the drive and the way round as
// one over the root of their resistance: 2 : 1.
std::unique_ptr<Model> FixedFlowLoop() {
    auto m = LoopNet(0.01f, 1.0f, 2.0f, 2.0f, 0.01f);
    m->Airways[5].BranchCode |= bc::FixedFlow;
    m->Airways[5].Quantity = 100;
    return m;
}

// The loop with a fan on its exhaust: P = p0 - slope x Q from q0 in steps of 10.
Builder FanLoop(float scale, float p0, float slope, float q0) {
    return [=] {
        auto m = LoopNet(0.02f * scale, 0.2f * scale, 0.1f * scale, 0.1f * scale, 0.03f * scale);
        SetStraightFan(*m, 1, p0, slope, q0, 10);
        m->Airways[5].FanNumber = 1;
        m->Airways[5].NoOfFans = 1;
        return m;
    };
}

// Two underground airways round an island D-E, one driving the other at 100 Pa.
void AddIsland(Model& m) {
    const Point D = Underground(500, 500), E = Underground(600, 500);
    AddAirway(m, D, E, 0.1f);
    const std::int32_t back = AddFan(m, E, D, 0.1f, -1);
    m.Airways[back].Pressure = 100;
}

// The fan loop with a curve that rises over its first three points, 500 to 700 Pa, and falls
// as 1000 - 10 Q from 30 m3/s on.
std::unique_ptr<Model> RisingFanLoop() {
    auto m = FanLoop(1, 1000, 10, 0)();
    FanRecord& f = m->Fans[1];
    for (int p = 1; p <= 3; ++p) f.FanPStatic[p] = f.FanPTotal[p] = 400.0f + 100.0f * static_cast<float>(p);
    return m;
}

struct Case {
    const char* Name;
    Builder Build;
    std::int32_t Airway = 0; // with a closed form: its airway number, flow and pressure
    double Flow = 0;
    float Pressure = NAN;
    std::vector<std::array<double, 3>> Nodes = {}; // airway, its From and To node pressures
};

std::vector<Case> ClosedAndAwkwardNetworks() {
    const double fanQ = 50.0 * (std::sqrt(5.0) - 1.0); // 0.1 Q^2 = 1000 - 10 Q
    std::vector<Case> cases;
    // A plain airway loses R Q^2; the fixed flow holds the closing pressure of its loop; node
    // pressures run from the surface, down the intake and back up to 0.
    const double q2 = 200.0 / 3;
    cases.push_back({"fixed flow shared as one over the root of R",
                     FixedFlowLoop,
                     5,
                     100,
                     static_cast<float>(100 + q2 * q2 + 100),
                     {{1, 0, -100}, {2, -100, -100 - q2 * q2}, {3, -100, NAN}, {4, NAN, -100 - q2 * q2}, {5, NAN, 0}}});
    // Total resistance 0.02 + 0.2 / 4 + 0.03 = 0.1 against P = 1000 - 10 Q: 0.1 Q^2 + 10 Q - 1000 = 0.
    cases.push_back({"fan at the operating point of its straight curve",
                     FanLoop(1, 1000, 10, 0),
                     5,
                     fanQ,
                     static_cast<float>(1000 - 10 * fanQ),
                     {{1, 0, -0.02 * fanQ * fanQ}, {5, -0.07 * fanQ * fanQ, 0}}});
    cases.push_back({"fixed pressure",
                     [] {
                         auto m = LoopNet(0.02f, 0.2f, 0.1f, 0.1f, 0.03f);
                         m->Airways[5].FanNumber = -1;
                         m->Airways[5].Pressure = 400;
                         return m;
                     },
                     5, std::sqrt(4000.0), 400});
    // Resistance 1 against a curve that starts at 80 m3/s with 1000 Pa: the fan settles at
    // sqrt(1000) on the pressure of point 1, and the node pressures count it there.
    cases.push_back({"stalled fan", FanLoop(10, 1400, 5, 80), 5, std::sqrt(1000.0), StalledFanPressure, {{5, NAN, 0}}});
    cases.push_back({"negated fan beyond its free delivery",
                     [] {
                         auto m = NewModel();
                         SetStraightFan(*m, 1, 1000, 10, 0, 10);
                         AddAirway(*m, Surface(100), Underground(100), 0.02f);
                         const std::int32_t fixed = AddFan(*m, Underground(100), Underground(200), 0.01f, -1);
                         m->Airways[fixed].Pressure = 5000;
                         AddFan(*m, Underground(200), Surface(200), 0.07f, 1);
                         return m;
                     },
                     3,
                     std::sqrt(50000.0),
                     NegatedFanPressure,
                     {{3, NAN, 0}}});
    cases.push_back({"rising first stretch of a fan curve, from a flow on its falling stretch",
                     [] {
                         auto m = RisingFanLoop();
                         m->Airways[5].Quantity = 50; // the fan's airway is the chord of its mesh
                         return m;
                     },
                     5, fanQ});
    cases.push_back({"airway without resistance", [] {
                         auto m = FanLoop(1, 1000, 10, 0)();
                         m->Airways[3].Resistance = 0;
                         return m;
                     }});
    cases.push_back({"one mesh",
                     [] {
                         auto m = NewModel();
                         SetStraightFan(*m, 1, 1000, 10, 0, 10);
                         AddAirway(*m, Surface(100), Underground(100), 0.05f);
                         AddFan(*m, Underground(100), Surface(200), 0.05f, 1);
                         return m;
                     },
                     2, fanQ});
    cases.push_back({"island away from the surface",
                     [] {
                         auto m = FanLoop(1, 1000, 10, 0)();
                         AddIsland(*m);
                         return m;
                     },
                     6, std::sqrt(500.0)});
    cases.push_back({"fixed flow that no loop can carry", [] {
                         auto m = FanLoop(1, 1000, 10, 0)();
                         AddIsland(*m);
                         AddFixedFlow(*m, Underground(100), Underground(500, 500), 0.1f, 10);
                         return m;
                     }});
    return cases;
}

TEST(Newton, ClosedFormsAndAwkwardNetworksGiveWhatHardyCrossGives) {
    for (const Case& c : ClosedAndAwkwardNetworks()) {
        SCOPED_TRACE(c.Name);
        const Outcome h = RunBy(c.Build, SolverHardyCross);
        const Outcome n = RunBy(c.Build, SolverNewton);
        // Each lies within AllowErr of the balance.
        ExpectSameOutcome(h, n, 2 * h.M->Set.AllowErr, 0.05);
        if (c.Airway != 0) {
            const Airway& a = *n.ByNumber.at(c.Airway);
            EXPECT_NEAR(a.Quantity, c.Flow, 2e-3);
            if (!std::isnan(c.Pressure)) {
                EXPECT_NEAR(a.Pressure, c.Pressure, 0.5);
            }
        }
        for (const auto& [number, from, to] : c.Nodes) {
            const Airway& a = *n.ByNumber.at(static_cast<std::int32_t>(number));
            EXPECT_TRUE(std::isnan(from) || std::fabs(a.FromNodeP - from) < 0.5) << number << ": " << a.FromNodeP;
            EXPECT_TRUE(std::isnan(to) || std::fabs(a.ToNodeP - to) < 0.5) << number << ": " << a.ToNodeP;
        }
        EXPECT_LE(n.Passes, 12);
    }
    // The fixed flow that no loop can carry stops both runs at the meshing stage.
    const Outcome bad = RunBy(ClosedAndAwkwardNetworks().back().Build, SolverNewton);
    EXPECT_EQ(bad.M->SimFail, RunResult::Failed);
    EXPECT_EQ(ErrorLines(*bad.M), (std::vector<std::string>{"8\tFIX restricting flow"}));

    // From still air Hardy Cross walks up the rising stretch the wrong way (its derivative there
    // is negative) and ends with the fan running backwards; Newton, whose step is kept
    // downhill, finds the operating point and has nothing to say.
    const Outcome h = RunBy(RisingFanLoop, SolverHardyCross);
    EXPECT_EQ(ErrorLines(*h.M), (std::vector<std::string>{"5\tFan flow reversed"}));
    const Outcome n = RunBy(RisingFanLoop, SolverNewton);
    EXPECT_EQ(n.M->SimFail, RunResult::Good);
    EXPECT_TRUE(n.Messages.empty());
    EXPECT_NEAR(n.ByNumber.at(5)->Quantity, 50.0 * (std::sqrt(5.0) - 1.0), 2e-3);
}

TEST(Newton, GeneratedMinesBalanceToTheAnswerOfHardyCross) {
    for (const auto& [size, seed] : {std::pair{1000, 1}, std::pair{2500, 3}}) {
        SCOPED_TRACE(size);
        const Builder build = [size = size, seed = seed] { return GeneratedMine(size, seed, 2, 2); };
        const Outcome h = RunBy(build, SolverHardyCross);
        Outcome n = RunBy(build, SolverNewton);
        ASSERT_EQ(n.M->SimFail, RunResult::Good);
        ASSERT_TRUE(n.Messages.empty()) << n.Messages.front();
        ExpectKirchhoff(*n.M);
        EXPECT_LE(n.Passes, 15) << "iterations from still air";
        // Hardy Cross stops once each mesh's own correction is within AllowErr, which leaves
        // its flows on these mines up to about 50 AllowErr from the balance; Newton's lie
        // within AllowErr of it. Pressures follow the flows.
        ExpectSameOutcome(h, n, 0.02, 2.0);

        // By Hardy Cross's own rule the Newton flows are balanced: its first pass from them
        // finds no mesh open. And Newton again over them ends in its first iteration.
        for (std::int16_t solver : {SolverHardyCross, SolverNewton}) {
            WatchingUi again;
            n.M->Set.Solver = solver;
            RunAirflow(*n.M, again);
            EXPECT_EQ(again.Attempts, (std::vector<std::string>{"", ""})) << solver;
            EXPECT_EQ(n.M->SimFail, RunResult::Good);
        }
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

    // One pass or iteration allowed: the question carries the share of meshes settled (the fixed
    // flow's mesh never is open: 1 of 2); Yes runs one more allowance, No keeps the flows, which
    // the run then stores.
    for (const std::int16_t solver : {SolverHardyCross, SolverNewton}) {
        SCOPED_TRACE(solver);
        auto model = FixedFlowLoop();
        Model& m = *model;
        m.Set.Solver = solver;
        m.Set.MaxIter = 1;
        WatchingUi ui;
        ui.Answers = {ui::Answer::Yes, ui::Answer::No};
        RunAirflow(m, ui);
        EXPECT_EQ(ui.Texts("Ask"), std::vector<std::string>(2, ConvergenceQuestion(50)));
        EXPECT_EQ(ui.Transcript[0].Title, "Convergence Warning");
        EXPECT_EQ(ui.Attempts, (std::vector<std::string>{"", "", "1", "1"}));
        EXPECT_EQ(ui.Errors.size(), 4u);
        EXPECT_EQ(m.SimFail, RunResult::Good);
        EXPECT_EQ(m.SimValid, Validity::Valid);
        const float q2 = AirwayNo(m, 2).Quantity, q3 = AirwayNo(m, 3).Quantity;
        EXPECT_NEAR(q2 + q3, 100.0f, 1e-3); // continuity holds after any pass
        EXPECT_GT(std::fabs(q2 - 200.0f / 3), 1e-3);
    }
    // A coarse allowed error stops Hardy Cross after one pass.
    auto coarse = FanLoop(1, 1000, 10, 0)();
    coarse->Set.AllowErr = 5.0f;
    WatchingUi once;
    RunAirflow(*coarse, once);
    EXPECT_EQ(coarse->SimFail, RunResult::Good);
    EXPECT_NEAR(AirwayNo(*coarse, 5).Quantity, 61.8, 10.0);
}

TEST(Balance, NewtonMarksTheNonConvergingAirwaysOfTheMeshesStillOpen) {
    const Builder loop = FanLoop(1, 1000, 10, 0);
    // Non-converging airways: mode -1 marks the airways of the meshes still open at the end.
    {
        auto model = loop();
        Model& m = *model;
        m.Set.Solver = SolverNewton;
        m.Set.MaxIter = 1;
        m.SimMode = RunMode::FindNonConverging;
        WatchingUi ui;
        ui.DefaultAnswer = ui::Answer::No;
        RunAirflow(m, ui);
        EXPECT_EQ(m.SimFail, RunResult::Failed);
        EXPECT_FALSE(ErrorLines(m).empty());
        for (const auto& line : ErrorLines(m)) EXPECT_NE(line.find("\tConverge Error"), std::string::npos);
    }
}

} // namespace
} // namespace karvane::simulate
