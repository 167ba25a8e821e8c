// Contaminant sourcing on small networks: the precedence of the three walks, the flow limits
// of the walks, the surface, the report pins and their conflict questions, and the messages.
#include <gtest/gtest.h>

#include "contaminant/sourcing.h"
#include "smoke_networks.h"

namespace karvane::smoketest {
namespace {

using namespace contaminant;

// An intake to A, two drives A-B-D and A-C-D, and the exhaust from D.
struct Split {
    std::unique_ptr<Model> m = NewModel();
    std::int32_t in, ab, ac, bd, cd, out;
    Split() {
        in = Add(*m, Surface(0), Under(0), 20);
        ab = Add(*m, Under(0), Under(100, 50), 10);
        ac = Add(*m, Under(0), Under(100, -50), 10);
        bd = Add(*m, Under(100, 50), Under(200), 10);
        cd = Add(*m, Under(100, -50), Under(200), 10);
        out = Add(*m, Under(200), Surface(300), 20);
    }
    std::int16_t State(std::int32_t row) const { return m->Airways[row].Gas2; }
};

TEST(Sourcing, ClearOverridesPotentialSourceAndSmokeOverridesBoth) {
    Split net;
    net.m->Airways[net.bd].Gas1 = SmokePin;
    net.m->Airways[net.cd].Gas1 = ClearPin;
    net.m->Airways[net.ac].Gas2 = 123; // left over from a spread
    ui::ScriptedUserInterface ui;
    Balanced(*net.m, ui);
    RunSourcing(*net.m, ui);
    EXPECT_EQ(net.m->GasActive, 2);
    EXPECT_EQ(net.State(net.ab), PotentialSourceState); // upstream of the smoke only
    EXPECT_EQ(net.State(net.in), ClearState);           // upstream of both: clear
    EXPECT_EQ(net.State(net.ac), ClearState);
    EXPECT_EQ(net.State(net.cd), ClearState);
    EXPECT_EQ(net.State(net.bd), SmokeState);
    EXPECT_EQ(net.State(net.out), SmokeState); // downstream of the smoke
    EXPECT_TRUE(ui.Transcript.empty());

    // Smoke reported downstream of a clear report: the airways after the smoke pin are smoke,
    // the clear pin upstream holds. Smoke reported upstream of a clear report runs over it.
    Split chain;
    chain.m->Airways[chain.ab].Gas1 = ClearPin;
    chain.m->Airways[chain.bd].Gas1 = SmokePin;
    Balanced(*chain.m, ui);
    RunSourcing(*chain.m, ui);
    EXPECT_EQ(chain.State(chain.ab), ClearState);
    EXPECT_EQ(chain.State(chain.in), ClearState);
    EXPECT_EQ(chain.State(chain.bd), SmokeState);
    EXPECT_EQ(chain.State(chain.out), SmokeState);
    EXPECT_EQ(chain.State(chain.ac), UnknownState);
    chain.m->Airways[chain.ab].Gas1 = SmokePin;
    chain.m->Airways[chain.bd].Gas1 = ClearPin;
    RunSourcing(*chain.m, ui);
    EXPECT_EQ(chain.State(chain.in), PotentialSourceState);
    EXPECT_EQ(chain.State(chain.ab), SmokeState);
    EXPECT_EQ(chain.State(chain.bd), SmokeState); // the clear pin is overrun
    EXPECT_EQ(chain.State(chain.out), SmokeState);
    EXPECT_EQ(chain.State(chain.cd), UnknownState);
}

TEST(Sourcing, UpstreamWalksNeedMoreThanATenthAndStopAtTheSurface) {
    Split net;
    net.m->Airways[net.ac].Quantity = 0.1f; // not walked upstream
    net.m->Airways[net.out].Gas1 = SmokePin;
    ui::ScriptedUserInterface ui;
    Balanced(*net.m, ui);
    RunSourcing(*net.m, ui);
    EXPECT_EQ(net.State(net.cd), PotentialSourceState);
    EXPECT_EQ(net.State(net.bd), PotentialSourceState);
    EXPECT_EQ(net.State(net.ac), UnknownState);
    EXPECT_EQ(net.State(net.in), PotentialSourceState);
    EXPECT_EQ(net.State(net.out), SmokeState);

    // A clear pin on the intake colours it but walks no further: the atmosphere is upstream of
    // every intake. A smoke pin there carries the smoke down anything with a flow.
    Split intake;
    intake.m->Airways[intake.cd].Quantity = 0.05f;
    intake.m->Airways[intake.in].Gas1 = ClearPin;
    Balanced(*intake.m, ui);
    RunSourcing(*intake.m, ui);
    EXPECT_EQ(intake.State(intake.in), ClearState);
    EXPECT_EQ(intake.State(intake.out), UnknownState);
    intake.m->Airways[intake.in].Gas1 = SmokePin;
    intake.m->Airways[intake.ab].Quantity = 0;
    RunSourcing(*intake.m, ui);
    EXPECT_EQ(intake.State(intake.ac), SmokeState);
    EXPECT_EQ(intake.State(intake.cd), SmokeState);
    EXPECT_EQ(intake.State(intake.out), SmokeState);
    EXPECT_EQ(intake.State(intake.ab), UnknownState); // no flow at all
    EXPECT_EQ(intake.State(intake.bd), UnknownState);

    // No pins: no states, nothing said.
    Split bare;
    Balanced(*bare.m, ui);
    RunSourcing(*bare.m, ui);
    for (std::int32_t r = 1; r <= bare.m->AirwayCount; ++r) EXPECT_EQ(bare.State(r), UnknownState);
    EXPECT_TRUE(ui.Transcript.empty());
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
    EXPECT_EQ(m->GasActive, 0);
}

TEST(Sourcing, ReportPinsAndTheirConflicts) {
    Split net;
    Model& m = *net.m;
    ui::ScriptedUserInterface ui;
    m.Smoke.PinType = SmokePin;
    EXPECT_TRUE(PlaceReport(m, ui, net.ab, 0.8f));
    EXPECT_EQ(m.Airways[net.ab].Gas1, SmokePin);
    EXPECT_FLOAT_EQ(m.Airways[net.ab].IconLoc, 0.5f);
    EXPECT_TRUE(PlaceReport(m, ui, net.ab, 0.4f)); // the same pin again removes it
    EXPECT_EQ(m.Airways[net.ab].Gas1, NoPin);
    EXPECT_FLOAT_EQ(m.Airways[net.ab].IconLoc, 0.5f);
    PlaceReport(m, ui, net.ab, 0.4f);
    m.Smoke.PinType = ClearPin;
    EXPECT_TRUE(PlaceReport(m, ui, net.ab, 0.4f)); // the other pin replaces it
    EXPECT_EQ(m.Airways[net.ab].Gas1, ClearPin);
    EXPECT_TRUE(ui.Transcript.empty());

    // A smoke report where the sourcing found clear air, a clear one where it found smoke.
    m.Airways[net.ac].Gas2 = ClearState;
    m.Airways[net.bd].Gas2 = SmokeState;
    ui.Answers = {ui::Answer::No, ui::Answer::Yes, ui::Answer::No};
    m.Smoke.PinType = SmokePin;
    EXPECT_FALSE(PlaceReport(m, ui, net.ac, 0.5f));
    EXPECT_EQ(m.Airways[net.ac].Gas1, NoPin);
    EXPECT_TRUE(PlaceReport(m, ui, net.ac, 0.5f));
    EXPECT_EQ(m.Airways[net.ac].Gas1, SmokePin);
    EXPECT_TRUE(PlaceReport(m, ui, net.bd, 0.5f)); // smoke on smoke: no question
    m.Smoke.PinType = ClearPin;
    EXPECT_FALSE(PlaceReport(m, ui, net.bd, 0.5f));
    EXPECT_EQ(m.Airways[net.bd].Gas1, SmokePin);
    EXPECT_EQ(ui.Texts("Ask"),
              (std::vector<std::string>{
                  "You are about to place a smoke report in a defined clear airway - is this correct",
                  "You are about to place a smoke report in a defined clear airway - is this correct",
                  "You are about to place a 'clear' report in a defined smoked airway - is this correct"}));
    for (const auto& e : ui.Transcript) EXPECT_EQ(e.Title, "Conflicting Report");
    EXPECT_FALSE(PlaceReport(m, ui, 0, 0.5f));

    // Clearing: the menu command keeps the result on show; the legend's button asks first.
    m.GasActive = 2;
    ClearSourcing(m);
    EXPECT_EQ(m.Airways[net.bd].Gas1, NoPin);
    EXPECT_EQ(m.Airways[net.bd].Gas2, UnknownState);
    EXPECT_EQ(m.GasActive, 2);
    m.Airways[net.in].Gas1 = ClearPin;
    ui::ScriptedUserInterface pins;
    pins.Answers = {ui::Answer::No, ui::Answer::Yes};
    EXPECT_FALSE(ClearPins(m, pins));
    EXPECT_EQ(m.Airways[net.in].Gas1, ClearPin);
    EXPECT_TRUE(ClearPins(m, pins));
    EXPECT_EQ(m.Airways[net.in].Gas1, NoPin);
    EXPECT_EQ(m.GasActive, 0);
    EXPECT_EQ(pins.Texts("Ask"), std::vector<std::string>(2, "Confirm deletion of all report pins"));
    EXPECT_EQ(pins.Transcript[0].Title, "Delete smoke reports");
}

} // namespace
} // namespace karvane::smoketest
