// The run driver against a golden record of each run: refusals, progress figures and captions,
// the stop button, a failed check, airways turned to match their flow (with the undo log), the
// fixed direction question and fans that run backwards.
#include <gtest/gtest.h>

#include "sim_networks.h"
#include "simulate/run.h"
#include "support/golden.h"

namespace karvane::simulate {
namespace {

using namespace simtest;

// Intake S1-A, drive A-B, a way round A-C-B (rows 3 and 4, drawn backwards as B-C-A when the
// test says, with its bits), and a fixed flow of `flow` up the exhaust B-S2.
std::unique_ptr<Model> LoopWithFixedFlow(float flow, bool wayRoundBackwards, std::int32_t bits = 0) {
    auto m = NewModel();
    const Point s1 = Surface(100), a = Underground(100), b = Underground(200), c = Underground(150, 50),
                s2 = Surface(200);
    AddAirway(*m, s1, a, 0.01f);
    AddAirway(*m, a, b, 1.0f);
    if (wayRoundBackwards) {
        AddAirway(*m, c, a, 2.0f, bits);
        AddAirway(*m, b, c, 2.0f, bits);
    } else {
        AddAirway(*m, a, c, 2.0f, bits);
        AddAirway(*m, c, b, 2.0f, bits);
    }
    AddFixedFlow(*m, b, s2, 0.01f, flow);
    return m;
}

TEST(Run, RunsAsRecorded) {
    std::string record;
    const auto run = [&record](Model& m, const char* title, std::vector<ui::Answer> answers = {}) {
        WatchingUi ui;
        ui.Answers.assign(answers.begin(), answers.end());
        RecordingHooks hooks;
        RunAirflow(m, ui, &hooks);
        record += std::string("== ") + title + "\n" + RunRecord(m, ui) + "undo steps " +
                  std::to_string(hooks.UndoSteps) + ", logged";
        for (const auto& [no, action] : hooks.Logged) record += " " + std::to_string(no) + "/" + std::to_string(action);
        record += "\n";
        return ui;
    };
    auto m = NewModel();
    run(*m, "no airway");
    AddAirway(*m, Surface(100), Underground(100), 1);
    run(*m, "one airway");
    EXPECT_EQ(m->NetworkSaved, Yes255);

    m = LoopWithFixedFlow(100, false);
    m->SimValid = Validity::NotValid;
    run(*m, "a good run shows every stage and leaves valid results");
    EXPECT_EQ(m->NetworkSaved, No0);
    EXPECT_EQ(SimStatus(*m).Caption, std::string("OK"));
    EXPECT_EQ(SimStatus(*m).BackColour, Rgb(0, 255, 0));
    InvalidateSimulation(*m);
    EXPECT_EQ(SimStatus(*m).Caption, std::string("SIM"));
    EXPECT_EQ(SimStatus(*m).ListBackColour, Rgb(255, 255, 192));
    m->ShowProgress = 0;
    run(*m, "a silent run shows nothing of its progress");

    m = LoopWithFixedFlow(100, false);
    AddAirway(*m, Underground(200), Underground(300), 1.0f); // leads nowhere
    run(*m, "a failed check ends at thirty in mode 1 with the error list");

    // Each turned row is logged before and after, in row order, in one undo step.
    m = LoopWithFixedFlow(100, true);
    run(*m, "airways turned to match their flow");
    EXPECT_NEAR(AirwayNo(*m, 3).Quantity, 100.0f / 3, 2e-3);
    // Rows stay sorted by key after the run (the pressures sort again after turning).
    for (std::int32_t r = 2; r <= m->AirwayCount; ++r) EXPECT_GE(m->Airways[r - 1].EntryKey, m->Airways[r].EntryKey);
    m = LoopWithFixedFlow(3, true);
    m->Set.AllowErr = 5.0f;
    run(*m, "a small backwards flow, within the allowed error, is turned afterwards without a record");

    // A fixed direction is turned only with consent, asked once per run.
    for (const auto answer : {ui::Answer::No, ui::Answer::Yes}) {
        m = LoopWithFixedFlow(100, true, bc::FixedDirection);
        run(*m, answer == ui::Answer::No ? "fixed direction, not turned" : "fixed direction, turned", {answer});
    }

    // A strong exhaust at B draws air down the weak fan's airway A-S3 against its direction: a
    // warning, still valid; without a fixed direction the fan's airway is turned afterwards, with
    // it the user is asked and says No.
    for (const bool fixedDirection : {false, true}) {
        m = NewModel();
        SetStraightFan(*m, 1, 50, 1, 0, 5);
        AddAirway(*m, Surface(100), Underground(100), 0.1f);
        AddAirway(*m, Underground(100), Underground(200), 0.1f);
        const std::int32_t exhaust = AddFan(*m, Underground(200), Surface(200), 0.01f, -1);
        m->Airways[exhaust].Pressure = 2000;
        const std::int32_t fan = AddFan(*m, Underground(100), Surface(300), 0.1f, 1);
        if (fixedDirection) m->Airways[fan].BranchCode |= bc::FixedDirection;
        run(*m, fixedDirection ? "a fan running backwards, fixed direction" : "a fan running backwards",
            {ui::Answer::No});
    }
    karvane::testing::ExpectGolden("simulate_runs.txt", record);
}

TEST(Run, TheStopButtonEndsTheRunWithFlowsAsTheyStood) {
    // Pumps: the opening of the window, then 0, 10, 20, 30, 40, 50, 60, then the first pass or
    // iteration.
    for (const std::int16_t solver : {SolverHardyCross, SolverNewton}) {
        auto m = LoopWithFixedFlow(100, false);
        m->Set.MaxIter = 50;
        m->Set.Solver = solver;
        WatchingUi ui;
        ui.StopModel = m.get();
        ui.StopAtPump = 9;
        RunAirflow(*m, ui);
        EXPECT_EQ(ui.ProgressPercents, (std::vector<int>{0, 10, 20, 30, 40, 50, 60, 70}));
        EXPECT_EQ(ui.ProgressCaptions.back(), "Simulation Failed !");
        EXPECT_EQ(m->SimValid, Validity::NotValid);
        EXPECT_EQ(m->SimFail, RunResult::Failed);
        EXPECT_EQ(ui.Attempts.back(), "1");
        // Continuity holds at the stop: every correction ran round a whole loop.
        EXPECT_NEAR(AirwayNo(*m, 2).Quantity + AirwayNo(*m, 3).Quantity, 100.0f, 1e-3);
    }

    // A stop during the checking stage ends the run after it.
    auto early = LoopWithFixedFlow(100, false);
    WatchingUi stopper;
    stopper.StopModel = early.get();
    stopper.StopAtPump = 3;
    RunAirflow(*early, stopper);
    EXPECT_EQ(stopper.ProgressPercents, (std::vector<int>{0, 10, 20, 30}));
    EXPECT_EQ(early->SimValid, Validity::NotValid);
}

} // namespace
} // namespace karvane::simulate
