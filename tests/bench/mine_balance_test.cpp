// A generated mine is a network the airflow run balances: no fault in the checks, the flows
// settle, every fan works on its curve, and a second run from the balanced flows settles
// within the default iteration limit without a question.
#include <gtest/gtest.h>

#include <cmath>
#include <memory>

#include "files/conversion_file.h"
#include "files/defaults_file.h"
#include "files/fan_file.h"
#include "files/network_load.h"
#include "generate/mine_generator.h"
#include "model/builtin_settings.h"
#include "model/units.h"
#include "simulate/run.h"
#include "ui/scripted_ui.h"

using namespace karvane;

TEST(MineGenerator, GeneratedMinesBalance) {
    for (std::int32_t size : {150, 320, 2500}) {
        SCOPED_TRACE(size);
        auto m = std::make_unique<Model>();
        SetBuiltInSettings(*m);
        minegen::MineRequest request;
        request.Airways = size;
        request.Seed = 4;
        request.Boosters = 1;
        minegen::MineLayout lay = minegen::GenerateMine(*m, request);
        m->ShowProgress = 0;
        ui::ScriptedUserInterface ui;
        ui.DefaultAnswer = ui::Answer::No;
        // A grid of drives and crosscuts settles slowly from still air.
        m->Set.MaxIter = 2000;
        simulate::RunAirflow(*m, ui);
        ASSERT_EQ(m->SimFail, 0);
        EXPECT_NE(m->SimValid, 0);
        EXPECT_TRUE(m->ErrorList.empty()) << m->ErrorList.front().Text;
        ASSERT_TRUE(ui.Transcript.empty()) << ui.Transcript.front().Title << ": " << ui.Transcript.front().Text;

        // The main fans draw the air up the exhaust shafts, well inside their curves.
        int mainFans = 0, boosters = 0;
        for (std::int32_t r = 1; r <= m->AirwayCount; ++r) {
            const Airway& w = m->Airways[r];
            ASSERT_TRUE(std::isfinite(w.Quantity)) << r;
            if (w.FanNumber == minegen::MainFanRow) {
                ++mainFans;
                EXPECT_GT(w.Quantity, 100.0f);
                EXPECT_LT(w.Quantity, 380.0f);
                EXPECT_GT(w.Pressure, 0.0f);
            } else if (w.FanNumber == minegen::BoosterFanRow) {
                ++boosters;
                EXPECT_GT(w.Quantity, 20.0f);
                EXPECT_LT(w.Quantity, 95.0f);
                EXPECT_GT(w.Pressure, 0.0f);
            }
        }
        EXPECT_EQ(mainFans, lay.ExhaustShafts);
        EXPECT_EQ(boosters, 1);

        m->Set.MaxIter = 50;
        simulate::RunAirflow(*m, ui);
        EXPECT_EQ(m->SimFail, 0);
        EXPECT_TRUE(ui.Transcript.empty());
    }
}

// The demo mine that ships with the program loads without a word and balances at once with its
// own settings, from the flows it was saved with.
TEST(DemoMine, LoadsAndBalancesWithoutAQuestion) {
    auto m = std::make_unique<Model>();
    ui::ScriptedUserInterface ui;
    ui.App = KARVANE_EXAMPLES;
    ui.DefaultAnswer = ui::Answer::No;
    SetBuiltInUnits(m->Units);
    files::LoadConversions(*m, ui);
    files::LoadBuiltInSettings(*m, ui);
    files::LoadFanDatabase(*m, ui);
    m->FileName = std::string(KARVANE_EXAMPLES) + "/demo-mine.sim";
    ASSERT_TRUE(files::LoadNetwork(*m, ui));
    EXPECT_TRUE(ui.Transcript.empty()) << ui.Transcript.front().Title << ": " << ui.Transcript.front().Text;
    EXPECT_EQ(m->Set.MaxIter, 50);

    m->ShowProgress = 0;
    simulate::RunAirflow(*m, ui);
    EXPECT_EQ(m->SimFail, 0);
    EXPECT_NE(m->SimValid, 0);
    EXPECT_TRUE(m->ErrorList.empty());
    EXPECT_TRUE(ui.Transcript.empty()) << ui.Transcript.front().Title << ": " << ui.Transcript.front().Text;
    int named = 0;
    for (std::int32_t r = 1; r <= m->AirwayCount; ++r) {
        const std::string name = TrimText(m->Airways[r].BranchName);
        named += name == "Main Intake Shaft" || name == "L2 Drive North" || name == "Main Exhaust Shaft";
    }
    EXPECT_GE(named, 3);
}
