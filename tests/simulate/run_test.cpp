// The run driver: refusals, progress figures and captions, the stop button, a failed check,
// airways turned to match their flow (with the undo log), the fixed direction question, fans
// that run backwards, and the neighbour lists.
#include <gtest/gtest.h>

#include "sim_networks.h"
#include "simulate/run.h"

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

TEST(Run, RefusesNetworksOfFewerThanTwoAirways) {
    auto m = NewModel();
    WatchingUi ui;
    RunAirflow(*m, ui);
    AddAirway(*m, Surface(100), Underground(100), 1);
    RunAirflow(*m, ui);
    EXPECT_EQ(ui.Texts("Message"), (std::vector<std::string>{"No data to simulate", "Not enough data to simulate"}));
    EXPECT_EQ(ui.Transcript[0].Title, ProgramName);
    EXPECT_EQ(ui.Opened, 0);
    EXPECT_EQ(m->NetworkSaved, Yes255);
    EXPECT_EQ(m->StopFlag, 255);
}

TEST(Run, AGoodRunShowsEveryStageAndLeavesValidResults) {
    auto m = LoopWithFixedFlow(100, false);
    m->SimValid = 0;
    WatchingUi ui;
    RecordingHooks hooks;
    RunAirflow(*m, ui, &hooks);
    EXPECT_EQ(m->SimFail, 0);
    EXPECT_EQ(m->SimValid, -1);
    EXPECT_EQ(ui.ProgressPercents, (std::vector<int>{0, 10, 20, 30, 40, 50, 60, 70, 80, 87, 95, 100}));
    EXPECT_EQ(ui.ProgressCaptions, (std::vector<std::string>{"Simulate", "Checking airways", "Meshing airways",
                                                             "Balancing airflows", "Resolving Pressures"}));
    EXPECT_EQ(ui.Opened, 1);
    EXPECT_EQ(ui.Closed, 1);
    EXPECT_TRUE(ui.Transcript.empty());
    EXPECT_FALSE(m->Run.ErrorListOpen);
    EXPECT_EQ(m->StopFlag, 255);
    EXPECT_EQ(m->NetworkSaved, No0);
    EXPECT_FALSE(m->AirwaysTurned);
    EXPECT_TRUE(hooks.Logged.empty());
    EXPECT_EQ(SimStatus(*m).Caption, std::string("OK"));
    EXPECT_EQ(SimStatus(*m).BackColour, Rgb(0, 255, 0));
    InvalidateSimulation(*m);
    EXPECT_EQ(SimStatus(*m).Caption, std::string("SIM"));
    EXPECT_EQ(SimStatus(*m).ListBackColour, Rgb(255, 255, 192));

    // A silent run shows nothing of its progress.
    WatchingUi silent;
    m->ShowProgress = 0;
    RunAirflow(*m, silent);
    EXPECT_EQ(silent.Opened, 0);
    EXPECT_TRUE(silent.ProgressPercents.empty());
    EXPECT_TRUE(silent.ProgressCaptions.empty());
    EXPECT_EQ(m->SimValid, -1);
}

TEST(Run, AFailedCheckEndsAtThirtyWithTheErrorList) {
    auto m = LoopWithFixedFlow(100, false);
    AddAirway(*m, Underground(200), Underground(300), 1.0f); // leads nowhere
    m->SimMode = 0;
    WatchingUi ui;
    RunAirflow(*m, ui);
    EXPECT_EQ(m->SimFail, 1);
    EXPECT_EQ(m->SimMode, 1); // a failed check leaves the run in mode 1
    EXPECT_EQ(ui.ProgressPercents, (std::vector<int>{0, 10, 20, 30}));
    EXPECT_EQ(ui.ProgressCaptions.back(), "Simulation Failed !");
    EXPECT_EQ(ErrorLines(*m), std::vector<std::string>{"6\tNo exit from branch"});
    EXPECT_TRUE(m->Run.ErrorListOpen);
    EXPECT_EQ(m->Run.ErrorListCaption, "Sim Fail Error List");
    EXPECT_EQ(m->SimValid, 0);
    EXPECT_EQ(ui.Closed, 1);
}

TEST(Run, TheStopButtonEndsTheRunWithFlowsAsTheyStood) {
    // Pumps: the opening of the window, then 0, 10, 20, 30, 40, 50, 60, then the first pass.
    auto m = LoopWithFixedFlow(100, false);
    m->Set.MaxIter = 50;
    WatchingUi ui;
    ui.StopModel = m.get();
    ui.StopAtPump = 9;
    RunAirflow(*m, ui);
    EXPECT_EQ(ui.ProgressPercents, (std::vector<int>{0, 10, 20, 30, 40, 50, 60, 70}));
    EXPECT_EQ(ui.ProgressCaptions.back(), "Simulation Failed !");
    EXPECT_EQ(m->SimValid, 0);
    EXPECT_EQ(m->SimFail, 1);
    EXPECT_EQ(ui.Attempts.back(), "1");
    // Continuity holds at the stop: every correction ran round a whole loop.
    EXPECT_NEAR(AirwayNo(*m, 2).Quantity + AirwayNo(*m, 3).Quantity, 100.0f, 1e-3);

    // A stop during the checking stage ends the run after it.
    auto early = LoopWithFixedFlow(100, false);
    WatchingUi stopper;
    stopper.StopModel = early.get();
    stopper.StopAtPump = 3;
    RunAirflow(*early, stopper);
    EXPECT_EQ(stopper.ProgressPercents, (std::vector<int>{0, 10, 20, 30}));
    EXPECT_EQ(early->SimValid, 0);
}

TEST(Run, AirwaysAreTurnedToMatchTheirFlowInOneUndoStep) {
    auto m = LoopWithFixedFlow(100, true);
    WatchingUi ui;
    RecordingHooks hooks;
    RunAirflow(*m, ui, &hooks);
    ASSERT_EQ(m->SimFail, 0);
    const Airway& turned = AirwayNo(*m, 3);
    EXPECT_NEAR(turned.Quantity, 100.0f / 3, 2e-3);
    EXPECT_EQ(turned.X1, 100); // now from A
    EXPECT_EQ(turned.X2, 150);
    EXPECT_EQ(AirwayNo(*m, 4).X2, 200);
    EXPECT_TRUE(m->AirwaysTurned);
    // Each turned row is logged before and after, in row order.
    ASSERT_EQ(hooks.Logged.size(), 4u);
    EXPECT_EQ(hooks.Logged[0].first, hooks.Logged[1].first);
    EXPECT_EQ(hooks.Logged[0].second, 2);
    EXPECT_EQ(hooks.Logged[1].second, 1);
    EXPECT_EQ(hooks.Logged[2].first + hooks.Logged[0].first, 7);
    EXPECT_EQ(hooks.UndoSteps, 1);
    for (std::int32_t r = 1; r <= m->AirwayCount; ++r) EXPECT_GE(m->Airways[r].Quantity, 0.0f);
    // Rows stay sorted by key after the run (the pressures sort again after turning).
    for (std::int32_t r = 2; r <= m->AirwayCount; ++r) EXPECT_GE(m->Airways[r - 1].EntryKey, m->Airways[r].EntryKey);

    // A small backwards flow, within the allowed error, is turned afterwards without a record.
    auto small = LoopWithFixedFlow(3, true);
    small->Set.AllowErr = 5.0f;
    WatchingUi ui2;
    RecordingHooks hooks2;
    RunAirflow(*small, ui2, &hooks2);
    EXPECT_EQ(small->SimFail, 0);
    EXPECT_GT(AirwayNo(*small, 3).Quantity, 0.0f);
    EXPECT_EQ(AirwayNo(*small, 3).X1, 100);
    EXPECT_TRUE(hooks2.Logged.empty());
    EXPECT_FALSE(small->AirwaysTurned);
}

TEST(Run, AFixedDirectionIsTurnedOnlyWithConsentAskedOncePerRun) {
    const std::string question = "Karvane detects a number of airways have a 'FIXED DIRECTION' on them and require "
                                 "reversing.  Karvane may not simulate correctly next time unless these airways "
                                 "are reversed.  Do you want to allow Karvane to do this ?";
    for (const auto answer : {ui::Answer::No, ui::Answer::Yes}) {
        auto m = LoopWithFixedFlow(100, true, bc::FixedDirection);
        WatchingUi ui;
        ui.Answers = {answer};
        RecordingHooks hooks;
        RunAirflow(*m, ui, &hooks);
        ASSERT_EQ(ui.Texts("Ask"), std::vector<std::string>{question}) << static_cast<int>(answer);
        EXPECT_EQ(ui.Transcript[0].Title, "Reverse airways");
        EXPECT_TRUE(hooks.Logged.empty());
        if (answer == ui::Answer::No) {
            EXPECT_LT(AirwayNo(*m, 3).Quantity, -1.0f);
            EXPECT_EQ(AirwayNo(*m, 3).X1, 150);
            EXPECT_LT(AirwayNo(*m, 4).Quantity, -1.0f);
        } else {
            EXPECT_GT(AirwayNo(*m, 3).Quantity, 1.0f);
            EXPECT_EQ(AirwayNo(*m, 3).X1, 100);
            EXPECT_GT(AirwayNo(*m, 4).Quantity, 1.0f);
        }
        EXPECT_EQ(m->SimValid, -1);
    }
}

TEST(Run, AFanRunningBackwardsIsAWarningAndStillValid) {
    // A strong exhaust at B draws air down the weak fan's airway A-S3 against its direction.
    for (const bool fixedDirection : {false, true}) {
        auto m = NewModel();
        SetStraightFan(*m, 1, 50, 1, 0, 5);
        AddAirway(*m, Surface(100), Underground(100), 0.1f);
        AddAirway(*m, Underground(100), Underground(200), 0.1f);
        const std::int32_t exhaust = AddFan(*m, Underground(200), Surface(200), 0.01f, -1);
        m->Airways[exhaust].Pressure = 2000;
        const std::int32_t fan = AddFan(*m, Underground(100), Surface(300), 0.1f, 1);
        if (fixedDirection) m->Airways[fan].BranchCode |= bc::FixedDirection;
        WatchingUi ui;
        ui.DefaultAnswer = ui::Answer::No;
        RunAirflow(*m, ui);
        EXPECT_EQ(m->SimFail, 2);
        EXPECT_EQ(m->SimValid, -1);
        EXPECT_EQ(ErrorLines(*m), std::vector<std::string>{"4\tFan flow reversed"});
        EXPECT_EQ(AirwayNo(*m, 4).Comment, "Flow Reverse");
        EXPECT_TRUE(AirwayNo(*m, 4).Has(bc::ErrorMark));
        EXPECT_EQ(AirwayNo(*m, 4).Pressure, StalledFanPressure);
        EXPECT_TRUE(m->Run.ErrorListOpen);
        EXPECT_EQ(m->Run.ErrorListCaption, "Warning-reversals");
        // Without the fixed direction the fan's airway is turned afterwards; with it, the
        // user is asked and said No.
        EXPECT_EQ(ui.Texts("Ask").size(), fixedDirection ? 1u : 0u);
        EXPECT_EQ(AirwayNo(*m, 4).Quantity < 0, fixedDirection);
    }
}

TEST(Run, NeighbourListsNameTheRowsThatMeetEachEnd) {
    auto m = LoopWithFixedFlow(100, false);
    WatchingUi ui;
    RunAirflow(*m, ui);
    ASSERT_EQ(m->SimValid, -1);
    auto names = [&](std::span<const std::int16_t> rows) {
        std::vector<std::int32_t> v;
        for (auto r : rows) v.push_back(m->Airways[r].AirwayNo);
        return v;
    };
    const std::int32_t drive = RowOf(*m, 2), intake = RowOf(*m, 1), exhaust = RowOf(*m, 5);
    EXPECT_EQ(names(Upstream(*m, drive)), std::vector<std::int32_t>{1});
    std::vector<std::int32_t> down = names(Downstream(*m, drive));
    EXPECT_EQ(down, std::vector<std::int32_t>{5});
    // Surface ends meet: the exhaust ends where the intake starts.
    EXPECT_EQ(names(Upstream(*m, intake)), std::vector<std::int32_t>{5});
    EXPECT_EQ(names(Downstream(*m, exhaust)), std::vector<std::int32_t>{1});
    EXPECT_TRUE(Upstream(*m, 0).empty());
    InvalidateSimulation(*m);
    EXPECT_EQ(Upstream(*m, drive).size(), 1u); // lists stand until the next run
}

} // namespace
} // namespace karvane::simulate
