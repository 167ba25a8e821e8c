// karvane-cli smoke and source on the demo mine with a source at an intake and report pins
// stored in the file: the printed tables and the JSON.
#include "cli_support.h"
#include "contaminant/sourcing.h"

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
    int contaminated = 0;
    for (const auto& a : doc["airways"]) contaminated += a["gas2"].get<int>() > 1 && a["spreadTime"].get<float>() > 0;
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
    int smoke = 0;
    for (const auto& a : doc["airways"]) smoke += a["gas2"] == contaminant::SmokeState;
    EXPECT_GT(smoke, 0);
}

} // namespace
} // namespace karvane
