// The built-in settings: what the shipped Defaults.dat cannot show, and the permanent views.
#include <gtest/gtest.h>

#include <array>
#include <vector>

#include "model/builtin_settings.h"

using namespace karvane;

// The values themselves are checked through the shipped Defaults.dat, which is exactly what the
// writer makes of them (tests/files/program_data_test.cpp); here, what no file shows.
TEST(BuiltInSettings, BulkheadFollowsTheBlockedResistance) {
    Model m;
    SetBuiltInSettings(m);
    EXPECT_EQ(m.Preset.ResPreset[1], static_cast<float>(m.Set.BlockedRes));
    EXPECT_EQ(m.Preset.ResNames[50], "Fix Res");
}

TEST(BuiltInSettings, PermanentViewsFollowTheVerticalAxis) {
    const float halfPi = static_cast<float>(3.141592654 / 2);
    for (const std::int16_t sgnY : {std::int16_t{1}, std::int16_t{-1}}) {
        Model m;
        m.SgnY = sgnY;
        m.SavedViews[3].ViewParam[5] = 800.0f; // a scale left from before
        SetBuiltInSettings(m);
        const auto& v = m.SavedViews;
        // Spin, tilt and the angles-only flag of the default, plan, long section, cross section
        // and iso views; a view of angles only keeps no scale.
        std::vector<std::array<float, 3>> angles;
        for (std::size_t slot = 1; slot <= 5; ++slot)
            angles.push_back({v[slot].ViewParam[1], v[slot].ViewParam[2], v[slot].ViewParam[14]});
        EXPECT_EQ(angles, (std::vector<std::array<float, 3>>{{0, 0, 0},
                                                             {0, 0, 1},
                                                             {sgnY * halfPi, 0, 1},
                                                             {sgnY * halfPi, -halfPi, 1},
                                                             {static_cast<float>(sgnY), -0.391f, 1}}));
        EXPECT_EQ(v[3].ViewParam[5], 0.0f);
        EXPECT_EQ(v[5].ViewName, " 5. Iso View");
        EXPECT_TRUE(v[6].ViewName.empty());
    }
}
