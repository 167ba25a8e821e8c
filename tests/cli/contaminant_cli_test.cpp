// karvane-cli smoke and source on the demo mine with a source at an intake and report pins
// stored in the file: the printed tables, the JSON, and the same results as the spread and the
// sourcing give in the program itself.
#include <map>

#include "cli_support.h"
#include "contaminant/sourcing.h"
#include "contaminant/spread.h"

namespace karvane {
namespace {

using namespace cli_testing;

class ContaminantCli : public CliTest {
protected:
    void SetUp() override {
        CliTest::SetUp();
        // A source at the first intake from the surface, a smoke pin on an airway it feeds
        // later on, and a clear pin on another intake.
        ui::ScriptedUserInterface ui;
        auto m = LoadDemo(ui);
        std::int32_t intakes = 0;
        for (std::int32_t r = 1; r <= m->AirwayCount; ++r) {
            Airway& a = m->Airways[r];
            if (a.EntryKey != SurfaceKey || a.FanNumber != 0 || !(a.Quantity > 1)) continue;
            if (++intakes == 1) {
                a.BranchCode |= bc::ContaminantSource;
                a.Contaminant = 100;
                sourceNo_ = a.AirwayNo;
            } else if (intakes == 2) {
                a.Gas1 = contaminant::ClearPin;
            }
        }
        ASSERT_GE(intakes, 1);
        m->Airways[m->AirwayCount / 2].Gas1 = contaminant::SmokePin;
        file_ = SaveVariant(*m, ui, "smoky.sim");
    }

    // Gas2 and SpreadTime by airway number as the program itself works them out.
    std::map<std::int32_t, std::pair<std::int16_t, float>> InProcess(bool sourcing, bool cumulative) {
        ui::ScriptedUserInterface ui;
        ui.DefaultAnswer = ui::Answer::No;
        auto m = LoadDemo(ui, file_);
        if (cumulative) m->Set.SmokeCumulative = 1;
        if (sourcing) contaminant::RunSourcing(*m, ui);
        else contaminant::RunContaminantSpread(*m, ui);
        std::map<std::int32_t, std::pair<std::int16_t, float>> out;
        for (std::int32_t r = 1; r <= m->AirwayCount; ++r)
            out[m->Airways[r].AirwayNo] = {m->Airways[r].Gas2, m->Smoke.SpreadTime[r]};
        return out;
    }

    std::string file_;
    std::int32_t sourceNo_ = 0;
};

TEST_F(ContaminantCli, SmokePrintsTheContaminatedAirwaysWithTheirArrivalTimes) {
    const Result r = Run("smoke '" + file_ + "'");
    ASSERT_EQ(r.code, 0) << r.err;
    EXPECT_NE(r.out.find("Mode: Fixed Injection\nSources: 1\n"), std::string::npos) << r.out;
    EXPECT_NE(r.out.find("Legend: 100 80 60 40 20 0\n"), std::string::npos) << r.out;
    EXPECT_NE(r.out.find("AirwayNo  Level  Arrival\n"), std::string::npos);
    std::ostringstream sourceLine;
    sourceLine << std::string(8 - std::to_string(sourceNo_).size(), ' ') << sourceNo_ << "    100  0:00:00\n";
    EXPECT_NE(r.out.find(sourceLine.str()), std::string::npos) << r.out;

    const Result j = Run("smoke '" + file_ + "' --cumulative --json");
    ASSERT_EQ(j.code, 0) << j.err;
    const auto doc = j.Json();
    EXPECT_EQ(doc["mode"], "cumulative");
    EXPECT_EQ(doc["gasActive"], 1);
    EXPECT_EQ(doc["legend"]["thresholds"].size(), 6u);
    EXPECT_GT(doc["legend"]["spreadMax"].get<int>(), 1);
    const auto expected = InProcess(false, true);
    ASSERT_EQ(doc["airways"].size(), expected.size());
    int contaminated = 0;
    for (const auto& a : doc["airways"]) {
        const auto& [gas2, time] = expected.at(a["airwayNo"].get<std::int32_t>());
        EXPECT_EQ(a["gas2"].get<int>(), gas2);
        EXPECT_FLOAT_EQ(a["spreadTime"].get<float>(), time);
        if (gas2 > 1) ++contaminated;
    }
    EXPECT_GT(contaminated, 3);
}

TEST_F(ContaminantCli, SourcePrintsEveryAirwaysState) {
    const Result r = Run("source '" + file_ + "'");
    ASSERT_EQ(r.code, 0) << r.err;
    EXPECT_NE(r.out.find("Report pins: 1 smoke, "), std::string::npos) << r.out;
    EXPECT_NE(r.out.find("AirwayNo  Pin   State\n"), std::string::npos);

    const Result j = Run("source '" + file_ + "' --json");
    ASSERT_EQ(j.code, 0) << j.err;
    const auto doc = j.Json();
    EXPECT_EQ(doc["gasActive"], 2);
    const auto expected = InProcess(true, false);
    ASSERT_EQ(doc["airways"].size(), expected.size());
    int smoke = 0;
    for (const auto& a : doc["airways"]) {
        EXPECT_EQ(a["gas2"].get<int>(), expected.at(a["airwayNo"].get<std::int32_t>()).first);
        if (a["gas2"] == contaminant::SmokeState) ++smoke;
    }
    EXPECT_GT(smoke, 0);
}

} // namespace
} // namespace karvane
