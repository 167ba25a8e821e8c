// Contaminant sourcing on small networks: the precedence of the three walks, the flow limits
// of the walks, the surface, the report pins and their conflict questions, and the messages.
#include <gtest/gtest.h>

#include "contaminant/sourcing.h"
#include "smoke_networks.h"

namespace karvane::smoketest {
namespace {

using namespace contaminant;

// An intake to A, two drives A-B-D and A-C-D, and the exhaust from D: rows in, ab, ac, bd, cd,
// out.
std::unique_ptr<Model> Split() {
    auto m = NewModel();
    Add(*m, Surface(0), Under(0), 20);
    Add(*m, Under(0), Under(100, 50), 10);
    Add(*m, Under(0), Under(100, -50), 10);
    Add(*m, Under(100, 50), Under(200), 10);
    Add(*m, Under(100, -50), Under(200), 10);
    Add(*m, Under(200), Surface(300), 20);
    return m;
}

// The states of the rows in order: S smoke, P potential source, C clear, . unknown.
std::string States(const Model& m) {
    std::string out;
    for (std::int32_t r = 1; r <= m.AirwayCount; ++r) {
        const std::int16_t state = m.Airways[r].Gas2;
        out += state == SmokeState ? 'S' : state == PotentialSourceState ? 'P' : state == ClearState ? 'C' : '.';
    }
    return out;
}

TEST(Sourcing, PrecedenceOfTheWalksAndTheirLimits) {
    struct Case {
        const char* Pins; // by row: S smoke report, C clear report
        std::vector<std::pair<std::int32_t, float>> Flows;
        const char* States;
    };
    const Case cases[] = {
        // Clear overrides potential source and smoke overrides both.
        {"...SC.", {}, "CPCSCS"},
        // Smoke reported downstream of a clear report: the clear pin upstream holds.
        {".C.S..", {}, "CC.S.S"},
        // Smoke reported upstream of a clear report runs over it.
        {".S.C..", {}, "PS.S.S"},
        // The upstream walk needs more than a tenth.
        {".....S", {{3, 0.1f}}, "PP.PPS"},
        // A clear pin on the intake walks no further: the atmosphere is upstream of every intake.
        {"C.....", {{5, 0.05f}}, "C....."},
        // A smoke pin there carries the smoke down anything with a flow.
        {"S.....", {{5, 0.05f}, {2, 0}}, "S.S.SS"},
        {"......", {}, "......"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.Pins);
        auto m = Split();
        for (std::int32_t r = 1; r <= 6; ++r) {
            m->Airways[r].Gas1 = c.Pins[r - 1] == 'S' ? SmokePin : c.Pins[r - 1] == 'C' ? ClearPin : NoPin;
            m->Airways[r].Gas2 = 123; // left over from a spread
        }
        for (const auto& [row, flow] : c.Flows) m->Airways[row].Quantity = flow;
        ui::ScriptedUserInterface ui;
        Balanced(*m, ui);
        RunSourcing(*m, ui);
        EXPECT_EQ(States(*m), c.States);
        EXPECT_EQ(m->GasActive, GasDisplay::Sourcing);
        EXPECT_TRUE(ui.Transcript.empty());
    }
}

TEST(Sourcing, ANetworkThatDoesNotBalanceIsRefused) {
    auto m = NewModel();
    Add(*m, Surface(0), Under(0), 0);
    Add(*m, Under(0), Under(100), 0);
    m->Airways[2].Gas1 = SmokePin;
    ui::ScriptedUserInterface ui;
    ui.DefaultAnswer = ui::Answer::No;
    RunSourcing(*m, ui);
    ASSERT_FALSE(ui.Transcript.empty());
    EXPECT_EQ(ui.Transcript.back().Text,
              "Network must be successfully balanced before smoke sourcing simulation can work");
    EXPECT_EQ(ui.Transcript.back().Title, ProgramName);
    EXPECT_EQ(m->GasActive, GasDisplay::None);
}

TEST(Sourcing, ReportPinsAndTheirConflicts) {
    auto model = Split();
    Model& m = *model;
    constexpr std::int32_t in = 1, ab = 2, ac = 3, bd = 4;
    ui::ScriptedUserInterface ui;
    m.Smoke.PinType = SmokePin;
    EXPECT_TRUE(PlaceReport(m, ui, ab, 0.8f));
    EXPECT_EQ(m.Airways[ab].Gas1, SmokePin);
    EXPECT_FLOAT_EQ(m.Airways[ab].IconLoc, 0.5f);
    EXPECT_TRUE(PlaceReport(m, ui, ab, 0.4f)); // the same pin again removes it
    EXPECT_EQ(m.Airways[ab].Gas1, NoPin);
    EXPECT_FLOAT_EQ(m.Airways[ab].IconLoc, 0.5f);
    PlaceReport(m, ui, ab, 0.4f);
    m.Smoke.PinType = ClearPin;
    EXPECT_TRUE(PlaceReport(m, ui, ab, 0.4f)); // the other pin replaces it
    EXPECT_EQ(m.Airways[ab].Gas1, ClearPin);
    EXPECT_TRUE(ui.Transcript.empty());

    // A smoke report where the sourcing found clear air, a clear one where it found smoke.
    m.Airways[ac].Gas2 = ClearState;
    m.Airways[bd].Gas2 = SmokeState;
    ui.Answers = {ui::Answer::No, ui::Answer::Yes, ui::Answer::No};
    m.Smoke.PinType = SmokePin;
    EXPECT_FALSE(PlaceReport(m, ui, ac, 0.5f));
    EXPECT_EQ(m.Airways[ac].Gas1, NoPin);
    EXPECT_TRUE(PlaceReport(m, ui, ac, 0.5f));
    EXPECT_EQ(m.Airways[ac].Gas1, SmokePin);
    EXPECT_TRUE(PlaceReport(m, ui, bd, 0.5f)); // smoke on smoke: no question
    m.Smoke.PinType = ClearPin;
    EXPECT_FALSE(PlaceReport(m, ui, bd, 0.5f));
    EXPECT_EQ(m.Airways[bd].Gas1, SmokePin);
    EXPECT_EQ(ui.Texts("Ask"),
              (std::vector<std::string>{
                  "You are about to place a smoke report in a defined clear airway - is this correct",
                  "You are about to place a smoke report in a defined clear airway - is this correct",
                  "You are about to place a 'clear' report in a defined smoked airway - is this correct"}));
    for (const auto& e : ui.Transcript) EXPECT_EQ(e.Title, "Conflicting Report");
    EXPECT_FALSE(PlaceReport(m, ui, 0, 0.5f));

    // Clearing: the menu command keeps the result on show; the legend's button asks first.
    m.GasActive = GasDisplay::Sourcing;
    ClearSourcing(m);
    EXPECT_EQ(m.Airways[bd].Gas1, NoPin);
    EXPECT_EQ(m.Airways[bd].Gas2, UnknownState);
    EXPECT_EQ(m.GasActive, GasDisplay::Sourcing);
    m.Airways[in].Gas1 = ClearPin;
    ui::ScriptedUserInterface pins;
    pins.Answers = {ui::Answer::No, ui::Answer::Yes};
    EXPECT_FALSE(ClearPins(m, pins));
    EXPECT_EQ(m.Airways[in].Gas1, ClearPin);
    EXPECT_TRUE(ClearPins(m, pins));
    EXPECT_EQ(m.Airways[in].Gas1, NoPin);
    EXPECT_EQ(m.GasActive, GasDisplay::None);
    EXPECT_EQ(pins.Texts("Ask"), std::vector<std::string>(2, "Confirm deletion of all report pins"));
    EXPECT_EQ(pins.Transcript[0].Title, "Delete smoke reports");
}

} // namespace
} // namespace karvane::smoketest
