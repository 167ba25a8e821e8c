// The built-in settings: what the shipped Defaults.dat cannot show, and the permanent views.
#include <gtest/gtest.h>

#include "model/builtin_settings.h"

using namespace karvane;

// The values themselves are checked through the shipped Defaults.dat, which is exactly what the
// writer makes of them (tests/files/program_data_test.cpp); here, what no file shows.
TEST(BuiltInSettings, BulkheadFollowsTheBlockedResistance) {
    Model m;
    SetBuiltInSettings(m);
    EXPECT_EQ(m.Preset.ResPreset[1], static_cast<float>(m.Set.BlockedRes));
    EXPECT_EQ(m.Preset.ResNames[50], "Fix Res");
    SetBuiltInCapacities(m);
    EXPECT_EQ(m.FirstLoadRow, 1);
}

TEST(BuiltInSettings, PermanentViewsFollowTheVerticalAxis) {
    const float halfPi = static_cast<float>(3.141592654 / 2);
    for (const std::int16_t sgnY : {std::int16_t{1}, std::int16_t{-1}}) {
        Model m;
        m.SgnY = sgnY;
        m.SavedViews[3].ViewParam[5] = 800.0f; // a scale left from before
        SetBuiltInSettings(m);
        const auto& v = m.SavedViews;
        EXPECT_EQ(v[1].ViewName, " 1. Default View");
        EXPECT_EQ(v[2].ViewName, " 2. Plan View 3D");
        EXPECT_EQ(v[3].ViewName, " 3. Long Section");
        EXPECT_EQ(v[4].ViewName, " 4. Cross Section");
        EXPECT_EQ(v[5].ViewName, " 5. Iso View");
        EXPECT_EQ(v[1].ViewParam[14], 0.0f);
        for (int slot = 2; slot <= 5; ++slot) EXPECT_EQ(v[static_cast<std::size_t>(slot)].ViewParam[14], 1.0f);
        EXPECT_EQ(v[2].ViewParam[1], 0.0f);
        EXPECT_EQ(v[2].ViewParam[2], 0.0f);
        EXPECT_EQ(v[3].ViewParam[1], sgnY * halfPi);
        EXPECT_EQ(v[3].ViewParam[2], 0.0f);
        EXPECT_EQ(v[4].ViewParam[1], sgnY * halfPi);
        EXPECT_EQ(v[4].ViewParam[2], -halfPi);
        EXPECT_EQ(v[5].ViewParam[1], static_cast<float>(sgnY));
        EXPECT_EQ(v[5].ViewParam[2], -0.391f);
        EXPECT_EQ(v[3].ViewParam[5], 0.0f); // a view of angles only
        EXPECT_TRUE(v[6].ViewName.empty());
    }
}
