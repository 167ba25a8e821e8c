// The colours of the contaminant results, the slider's time limit and label, and the legend
// boxes read back.
#include <gtest/gtest.h>

#include "contaminant/colours.h"
#include "smoke_networks.h"

namespace karvane::smoketest {
namespace {

using namespace contaminant;

TEST(ContaminantColours, SpreadLevelsByThresholdAndArrival) {
    auto m = NewModel();
    for (int k = 0; k < 8; ++k) Add(*m, Under(100 * k), Under(100 * k + 100), 1);
    const std::int16_t levels[8] = {100, 99, 79, 50, 1, 0, -5, 100};
    for (int k = 0; k < 8; ++k) m->Airways[k + 1].Gas2 = levels[k];
    SetDefaultThresholds(*m, 100);
    EXPECT_EQ(m->Smoke.ContaminantThreshold, (std::array<float, 6>{100, 80, 60, 40, 20, 0}));
    m->GasActive = GasDisplay::Spread;
    for (int r = 1; r <= 8; ++r) m->Smoke.SpreadTime[r] = static_cast<float>(10 * r);
    m->Smoke.SpreadTime[8] = NeverReached;

    // Everything shows at a time limit of 0; a level one below the top reaches the top colour.
    std::vector<int> colours;
    for (int r = 1; r <= 8; ++r) colours.push_back(AirwayContaminantColour(*m, r));
    EXPECT_EQ(colours, (std::vector<int>{6, 6, 5, 3, 1, 0, 0, 6}));

    // Only what has arrived by the limit, whichever sign it has.
    m->Smoke.SpreadLimit = 30;
    EXPECT_EQ(AirwayContaminantColour(*m, 3), 5);
    EXPECT_EQ(AirwayContaminantColour(*m, 4), 0);
    EXPECT_EQ(AirwayContaminantColour(*m, 8), 0);
    m->Smoke.SpreadLimit = -30;
    EXPECT_TRUE(ArrivedBySpreadLimit(*m, 3));
    EXPECT_FALSE(ArrivedBySpreadLimit(*m, 4));

    // Levels below every threshold have no colour.
    m->Smoke.SpreadLimit = 0;
    ReadThresholds(*m, {"500", "400", "300", "200", "100,5", "abc"});
    EXPECT_EQ(m->Smoke.ContaminantThreshold, (std::array<float, 6>{500, 400, 300, 200, 100.5f, 0}));
    ReadThresholds(*m, {"500", "400", "300", "200", "150", "120"});
    EXPECT_EQ(AirwayContaminantColour(*m, 1), 0);

    // A sourcing result shows its states; no result shows nothing; rows off the table are grey.
    m->GasActive = GasDisplay::Sourcing;
    m->Airways[1].Gas2 = 4;
    m->Airways[2].Gas2 = 7;
    m->Airways[3].Gas2 = 123;
    EXPECT_EQ(AirwayContaminantColour(*m, 1), 4);
    EXPECT_EQ(AirwayContaminantColour(*m, 2), 7);
    EXPECT_EQ(AirwayContaminantColour(*m, 3), 0);
    m->GasActive = GasDisplay::None;
    EXPECT_EQ(AirwayContaminantColour(*m, 1), 0);
    m->GasActive = GasDisplay::Spread;
    EXPECT_EQ(AirwayContaminantColour(*m, 0), 0);
    EXPECT_EQ(AirwayContaminantColour(*m, 9), 0);
    EXPECT_EQ(AirwayContaminantColour(*m, MaxAirways + 5), 0);
}

TEST(ContaminantColours, SliderLimitAndTimeLabel) {
    auto m = NewModel();
    SetSpreadLimit(*m, 0);
    EXPECT_EQ(m->Smoke.SpreadLimit, 1); // the start of the slider is not "everything"
    SetSpreadLimit(*m, 1761);
    EXPECT_EQ(m->Smoke.SpreadLimit, 1761);
    // Seconds are read as a fraction of a day of 86404 s.
    EXPECT_EQ(SpreadTimeText(0), "0:00:00");
    EXPECT_EQ(SpreadTimeText(90), "0:01:30");
    EXPECT_EQ(SpreadTimeText(10800), "3:00:00");
    EXPECT_EQ(SpreadTimeText(86404), "24:00:00");
    EXPECT_EQ(SpreadTimeText(40000), "11:06:38"); // 39998.1 s of an ordinary day
    EXPECT_EQ(ThresholdText(26.4f), "26");
    EXPECT_EQ(ThresholdText(6.6f), "7");
}

} // namespace
} // namespace karvane::smoketest
