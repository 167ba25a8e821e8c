// The contaminant spread on small networks whose flows the tests set: mixing at junctions,
// the surface stopping the spread, fixed injection against cumulative sources, arrival times,
// the level cap, the convergence question, a stop, the legend and the messages.
#include <gtest/gtest.h>

#include <cmath>

#include "contaminant/colours.h"
#include "contaminant/spread.h"
#include "smoke_networks.h"
#include "support/golden.h"

namespace karvane::smoketest {
namespace {

using contaminant::RunContaminantSpread;

// Two drives meet at J: 10 m3/s with a source of 100 and 10 m3/s of clean air, each from its
// own intake; 20 m3/s go on to the exhaust. After the exhaust, a second intake from the
// surface and its exhaust.
struct Junction {
    std::unique_ptr<Model> m = NewModel();
    std::int32_t dirty, clean, joined, exhaust, laterIntake, laterExhaust;
    Junction() {
        Add(*m, Surface(0), Under(0, 100), 10, 100);
        Add(*m, Surface(100), Under(0, -100), 10, 100);
        dirty = Add(*m, Under(0, 100), Under(0), 10, 100);
        clean = Add(*m, Under(0, -100), Under(0), 10, 100);
        joined = Add(*m, Under(0), Under(200), 20, 300);
        exhaust = Add(*m, Under(200), Surface(300), 20, 100);
        laterIntake = Add(*m, Surface(400), Under(400), 5, 100);
        laterExhaust = Add(*m, Under(400), Surface(500), 5, 100);
        MakeSource(*m, dirty, 100);
        m->Airways[joined].BranchCode = bc::Circular | bc::FixedLength;
    }
};

TEST(Spread, ArrivalTimesAddLengthOverVelocity) {
    Junction net;
    SmokeUi ui;
    Balanced(*net.m, ui);
    RunContaminantSpread(*net.m, ui);
    const Model& m = *net.m;
    // 100 m at 10 m3/s through 16 m2, then 300 m at 20 m3/s through a circle of 4 m.
    const double first = 100.0 / (10.0 / 16.0);
    const double circle = 4.0 * 4.0 / 4.0 * 3.1415927;
    EXPECT_EQ(TimeOf(m, net.dirty), 0.0f);
    EXPECT_FLOAT_EQ(TimeOf(m, net.joined), static_cast<float>(first));
    EXPECT_FLOAT_EQ(TimeOf(m, net.exhaust), static_cast<float>(first + 300.0 / (20.0 / circle)));
    EXPECT_EQ(m.Smoke.SpreadMax, static_cast<std::int32_t>(std::floor(first + 300.0 / (20.0 / circle))) + 1);

    // Two ways from A to B: a long slow drive entered at once, and a short way round entered
    // later. B's outgoing airway is timed through the feeder the contaminant entered first,
    // the long drive, even though air along the way round gets there sooner.
    auto w = NewModel();
    const std::int32_t in = Add(*w, Surface(0), Under(0), 20, 100);
    const std::int32_t drive = Add(*w, Under(0), Under(100), 10, 1000);
    const std::int32_t round1 = Add(*w, Under(0), Under(50, 50), 10, 100);
    const std::int32_t round2 = Add(*w, Under(50, 50), Under(100), 10, 100);
    const std::int32_t out = Add(*w, Under(100), Surface(200), 20, 100);
    w->Airways[drive].BranchCode = bc::AreaEntry | bc::FixedLength;
    w->Airways[drive].Width = 8; // m2
    MakeSource(*w, in, 100);
    Balanced(*w, ui);
    RunContaminantSpread(*w, ui);
    const double atA = 100.0 / (20.0 / 16.0);
    EXPECT_FLOAT_EQ(TimeOf(*w, drive), static_cast<float>(atA));
    EXPECT_FLOAT_EQ(TimeOf(*w, round2), static_cast<float>(atA + 100.0 / (10.0 / 16.0)));
    EXPECT_FLOAT_EQ(TimeOf(*w, out), static_cast<float>(atA + 1000.0 / (10.0 / 8.0)));
    EXPECT_EQ(Levels(*w, {out, round1}), (std::vector<int>{100, 100}));

    // An airway without a shape bit is taken at the least area, 0.05 m2.
    EXPECT_FLOAT_EQ(contaminant::TravelArea(Airway{}), 0.05f);
}

// An intake with a source of 100, a drive with a source of 50, an exhaust; and a source on an
// airway that carries no flow.
struct TwoSources {
    std::unique_ptr<Model> m = NewModel();
    std::int32_t intake, drive, exhaust, idle, idleOut;
    TwoSources() {
        intake = Add(*m, Surface(0), Under(0), 10);
        drive = Add(*m, Under(0), Under(100), 10);
        exhaust = Add(*m, Under(100), Surface(200), 10);
        idle = Add(*m, Surface(300), Under(300), 0);
        idleOut = Add(*m, Under(300), Surface(400), 0);
        MakeSource(*m, intake, 100);
        MakeSource(*m, drive, 50);
        MakeSource(*m, idle, 70);
    }
};

TEST(Spread, SpreadsAsRecorded) {
    std::string record;
    const auto spread = [&record](Model& m, const char* title, SmokeUi& ui, WindowHooks* hooks = nullptr,
                                  bool retain = false) {
        RunContaminantSpread(m, ui, hooks, retain);
        record += std::string("== ") + title + "\n" + SpreadRecord(m, ui);
        if (hooks != nullptr) {
            record += "windows";
            for (const auto& call : hooks->Calls) record += " " + call;
            record += "\n";
        }
    };
    {
        Junction net;
        SmokeUi ui;
        Balanced(*net.m, ui);
        spread(*net.m, "a junction mixes 10 clean and 10 at 100; the surface stops the spread", ui);
    }
    for (const int cumulative : {0, 1}) {
        TwoSources net;
        net.m->Set.SmokeCumulative = static_cast<std::int16_t>(cumulative);
        SmokeUi ui;
        Balanced(*net.m, ui);
        spread(*net.m,
               cumulative ? "cumulative: the drive has what arrives plus its own 50, the intake at the surface is fixed"
                          : "fixed injection holds every source whatever flows in; with no flow, no source",
               ui);
    }
    {
        auto m = NewModel();
        m->Set.AllowErr = 0.5f;
        const std::int32_t in = Add(*m, Surface(0), Under(0), 10);
        Add(*m, Under(0), Under(100), 9.6f);
        Add(*m, Under(0), Under(0, 100), 0.4f);
        Add(*m, Under(100), Surface(200), 9.6f);
        Add(*m, Under(0, 100), Surface(300), 0.4f);
        MakeSource(*m, in, 30000);
        SmokeUi ui;
        Balanced(*m, ui);
        spread(*m, "levels are capped but for a source's own; a flow of at most AllowErr is never reached", ui);
    }
    {
        // Air going round and round through a cumulative source gains 100 on every pass; No gives
        // another 101 passes.
        auto m = NewModel();
        m->Set.SmokeCumulative = 1;
        MakeSource(*m, Add(*m, Under(0), Under(100), 10), 100);
        Add(*m, Under(100), Under(0), 10);
        SmokeUi ui;
        ui.Answers = {ui::Answer::No, ui::Answer::Yes};
        Balanced(*m, ui);
        spread(*m, "a loop that never settles asks to accept the best guess", ui);
    }
    {
        TwoSources net;
        net.m->Airways[net.exhaust].Contaminant = 5; // a stray level on a row that is no source
        SmokeUi ui;
        WindowHooks hooks;
        ui.CancelModel = net.m.get();
        ui.CancelHooks = &hooks;
        ui.CancelAtPump = 2; // while the first reach round is shown
        Balanced(*net.m, ui);
        spread(*net.m, "cancel shows what has been worked out so far", ui, &hooks);
    }
    {
        auto m = NewModel();
        Add(*m, Surface(0), Under(0), 0);
        Add(*m, Under(0), Under(100), 0);
        SmokeUi ui;
        ui.DefaultAnswer = ui::Answer::No;
        spread(*m, "a network that cannot balance: an airway with no way out", ui);
        EXPECT_FALSE(ui.ProgressCaptions.empty()); // the airflow run showed its progress
    }
    {
        auto m = NewModel();
        Add(*m, Surface(0), Under(0), 1);
        m->SimValid = Validity::Valid;
        SmokeUi ui;
        spread(*m, "one airway and a result that counts as valid", ui);
    }
    {
        TwoSources net;
        net.m->Airways[net.intake].BranchCode &= ~bc::ContaminantSource;
        net.m->Airways[net.drive].BranchCode &= ~bc::ContaminantSource;
        SmokeUi ui;
        WindowHooks hooks;
        Balanced(*net.m, ui);
        spread(*net.m, "no source with a flow: nothing shown, nothing said", ui, &hooks);
    }
    {
        // The legend thresholds follow the highest level unless retained: each is the top less a
        // fifth of it per step, as a whole number.
        TwoSources net;
        Model& m = *net.m;
        SmokeUi ui;
        Balanced(m, ui);
        spread(m, "legend from the highest level", ui);
        m.Airways[RowOf(m, net.intake)].Contaminant = 33;
        m.Airways[RowOf(m, net.drive)].Contaminant = 10;
        spread(m, "legend retained although the highest level is now 33", ui, nullptr, true);
        spread(m, "legend not retained", ui);
        // Once a source is placed the retain box is no longer read: the choice stays as last taken.
        ui.Inputs = {std::string("50")};
        contaminant::PlaceContaminant(m, ui, RowOf(m, net.intake), 0.5f, false);
        spread(m, "legend after a source is placed", ui, nullptr, true);
    }
    {
        // The slider ends after the latest arrival and at three hours: 160 s through the intake,
        // then 1600 s, then 16000 s.
        TwoSources net;
        Model& m = *net.m;
        m.Airways[net.drive].BranchCode &= ~bc::ContaminantSource;
        m.Airways[net.drive].Length = 1000;
        SmokeUi ui;
        Balanced(m, ui);
        spread(m, "the slider ends after the latest arrival", ui);
        m.Airways[RowOf(m, net.drive)].Length = 10000;
        spread(m, "the slider ends at three hours", ui);
    }
    karvane::testing::ExpectGolden("contaminant_spreads.txt", record);
}

TEST(Spread, AnUnbalancedNetworkIsBalancedFirst) {
    // A fixed 20 m3/s up the exhaust, split evenly between two equal ways, one with a source;
    // the other is drawn against its flow with a fixed direction, so that the run turns it
    // (the user agreeing) after its own sort, and the spread's sort moves it.
    auto m = NewModel();
    const std::int32_t in = Add(*m, Surface(0), Under(0), 0);
    const std::int32_t left = Add(*m, Under(0), Under(100, 50), 0);
    const std::int32_t leftOn = Add(*m, Under(100, 50), Under(200), 0);
    const std::int32_t right = Add(*m, Under(100, -50), Under(0), 0); // both drawn backwards
    const std::int32_t rightOn = Add(*m, Under(200), Under(100, -50), 0);
    m->Airways[right].BranchCode |= bc::FixedDirection; // turned last, after the run's sort
    m->Airways[rightOn].BranchCode |= bc::FixedDirection;
    const std::int32_t out = Add(*m, Under(200), Surface(300), 20);
    m->Airways[out].BranchCode |= bc::FixedFlow;
    m->Set.MaxIter = 500;
    MakeSource(*m, left, 100);
    SmokeUi ui;
    RunContaminantSpread(*m, ui);
    EXPECT_EQ(m->SimValid, Validity::Valid);
    EXPECT_EQ(ui.ProgressCaptions.front(), "Simulate");
    EXPECT_EQ(ui.Transcript.front().Title, "Reverse airways");
    EXPECT_NEAR(m->Airways[RowOf(*m, left)].Quantity, 10.0f, 0.01f);
    EXPECT_EQ(m->Airways[RowOf(*m, rightOn)].X1, 100); // turned round
    EXPECT_EQ(m->Airways[RowOf(*m, right)].X1, 0);
    EXPECT_EQ(Levels(*m, {right, leftOn, rightOn, out, in}), (std::vector<int>{0, 100, 0, 50, 0}));
}

TEST(Spread, PlacingAndClearingSources) {
    TwoSources net;
    Model& m = *net.m;
    SmokeUi ui;
    // The left button toggles a source of 100 with its icon where the airway was picked.
    EXPECT_TRUE(contaminant::PlaceContaminant(m, ui, net.exhaust, 0.75f, true));
    EXPECT_TRUE(m.Airways[net.exhaust].Has(bc::ContaminantSource));
    EXPECT_EQ(m.Airways[net.exhaust].Contaminant, 100.0f);
    EXPECT_FLOAT_EQ(m.Airways[net.exhaust].IconLoc, 0.45f);
    EXPECT_TRUE(m.Smoke.SourcesChanged);
    contaminant::PlaceContaminant(m, ui, net.exhaust, 0.2f, true);
    EXPECT_FALSE(m.Airways[net.exhaust].Has(bc::ContaminantSource));
    EXPECT_EQ(m.Airways[net.exhaust].Contaminant, 0.0f);
    EXPECT_FLOAT_EQ(m.Airways[net.exhaust].IconLoc, 0.45f);

    // Another button asks for the level: the present one, or 100, is offered.
    ui.Inputs = {std::string("12,5"), std::string(""), std::nullopt, std::string("0")};
    EXPECT_TRUE(contaminant::PlaceContaminant(m, ui, net.exhaust, 0.5f, false));
    EXPECT_EQ(m.Airways[net.exhaust].Contaminant, 12.5f);
    EXPECT_TRUE(m.Airways[net.exhaust].Has(bc::ContaminantSource));
    EXPECT_FALSE(contaminant::PlaceContaminant(m, ui, net.exhaust, 0.9f, false)); // empty: nothing
    EXPECT_FALSE(contaminant::PlaceContaminant(m, ui, net.exhaust, 0.9f, false)); // cancelled
    EXPECT_EQ(m.Airways[net.exhaust].Contaminant, 12.5f);
    EXPECT_FLOAT_EQ(m.Airways[net.exhaust].IconLoc, 0.2f);
    EXPECT_TRUE(contaminant::PlaceContaminant(m, ui, net.exhaust, 0.9f, false)); // 0 removes it
    EXPECT_FALSE(m.Airways[net.exhaust].Has(bc::ContaminantSource));
    EXPECT_EQ(ui.Transcript[0].Title, "Concentration");
    EXPECT_EQ(ui.Texts("Input"), std::vector<std::string>(4, "Enter contamination concentration"));
    EXPECT_EQ(ui.Defaults, (std::vector<std::string>{"100", "12.5", "12.5", "12.5"}));
    EXPECT_FALSE(contaminant::PlaceContaminant(m, ui, 0, 0.5f, true));
    EXPECT_FALSE(contaminant::PlaceContaminant(m, ui, m.AirwayCount + 1, 0.5f, true));

    // Clearing: No keeps the sources and clears the stray levels of other airways; Yes clears all.
    m.Airways[net.exhaust].Contaminant = 7;
    m.GasActive = GasDisplay::Spread;
    WindowHooks hooks;
    SmokeUi ask;
    ask.Answers = {ui::Answer::No, ui::Answer::Yes};
    contaminant::ClearContaminant(m, ask, &hooks);
    EXPECT_EQ(m.Airways[net.exhaust].Contaminant, 0.0f);
    EXPECT_EQ(m.Airways[net.intake].Contaminant, 100.0f);
    EXPECT_EQ(m.GasActive, GasDisplay::None);
    EXPECT_EQ(hooks.Calls, (std::vector<std::string>{"CloseLegend", "RestoreDataTypes", "Redraw"}));
    contaminant::ClearContaminant(m, ask, &hooks);
    for (std::int32_t r = 1; r <= m.AirwayCount; ++r) {
        EXPECT_FALSE(m.Airways[r].Has(bc::ContaminantSource));
        EXPECT_EQ(m.Airways[r].Contaminant, 0.0f);
    }
    EXPECT_EQ(ask.Texts("Ask"), std::vector<std::string>(2, "Clear contaminant sources as well?"));
    EXPECT_EQ(ask.Transcript[0].Title, "CLEAR CONTAMINANT");

    // The legend's own button.
    MakeSource(m, net.drive, 40);
    SmokeUi legend;
    legend.Answers = {ui::Answer::No, ui::Answer::Yes};
    EXPECT_FALSE(contaminant::ClearSources(m, legend));
    EXPECT_TRUE(m.Airways[net.drive].Has(bc::ContaminantSource));
    EXPECT_TRUE(contaminant::ClearSources(m, legend));
    EXPECT_FALSE(m.Airways[net.drive].Has(bc::ContaminantSource));
    EXPECT_EQ(m.Airways[net.drive].Contaminant, 0.0f);
    EXPECT_EQ(legend.Texts("Ask"), std::vector<std::string>(2, "Clear contaminant sources ?"));
    EXPECT_EQ(legend.Transcript[0].Title, "CLEAR CONTAMINANTS");
}

} // namespace
} // namespace karvane::smoketest
