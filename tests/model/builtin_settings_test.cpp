// The built-in settings record, presets, colours, icon sizes and permanent views.
#include <gtest/gtest.h>

#include "model/builtin_settings.h"

using namespace karvane;

TEST(BuiltInSettings, RecordAgainstTheTable) {
    Model m;
    m.Set.Density = 0.5f;
    m.Set.LastAirwayNo = 88;
    m.Set.IconSize[3] = 17;
    SetBuiltInSettings(m);
    const Settings& s = m.Set;
    EXPECT_EQ(s.NodeDivisions, 5);
    EXPECT_EQ(s.GridSpacing, 50.0);
    EXPECT_EQ(s.PickDivisions, 25);
    EXPECT_EQ(s.DriveWallType, 4);
    EXPECT_EQ(s.DefaultShock, 2.0f);
    EXPECT_EQ(s.RaiseDiameter, 1.8f);
    EXPECT_EQ(s.SurfaceName, "SURFACE");
    EXPECT_EQ(s.AllowErr, 0.05f);
    EXPECT_EQ(s.PowerCost, 0.08f);
    EXPECT_EQ(s.AirEfficiency, 0.8f);
    EXPECT_EQ(s.Density, 1.2f);
    EXPECT_EQ(s.DisplayOptions, 511);
    EXPECT_EQ(s.SurfaceRL, 99999.0f);
    EXPECT_EQ(s.DataFilter, 3);
    EXPECT_EQ(s.ScaleFonts, 1);
    EXPECT_EQ(s.MaxFans, 250);
    EXPECT_EQ(s.UnitSys, 1);
    EXPECT_EQ(s.PerspectiveDistance, 1500.0f);
    EXPECT_EQ(s.DefaultPerimeter, 20.0f);
    EXPECT_EQ(s.DefaultArea, 25.0f);
    EXPECT_EQ(s.LastAirwayNo, 0);
    EXPECT_EQ(s.ViewBoxWidth, 500.0f);
    EXPECT_EQ(s.ViewBoxX, 1000.0f);
    EXPECT_EQ(s.FlowMax, 1000.0f);
    EXPECT_EQ(s.RaiseWallType, 2);
    EXPECT_EQ(s.MaxText, 100);
    EXPECT_EQ(s.BlockedRes, 1000000000);
    EXPECT_EQ(s.SurfaceBaro, 101.0f);
    for (int k = 1; k <= 4; ++k) {
        EXPECT_EQ(s.FontName[static_cast<std::size_t>(k)], "Arial");
        EXPECT_EQ(s.FontBold[static_cast<std::size_t>(k)], 0);
        EXPECT_EQ(s.FontSize[static_cast<std::size_t>(k)], 6);
    }
    const std::array<std::int16_t, 7> icons{1, 2, 5, 5, 5, 5, 5};
    EXPECT_EQ(s.IconSize, icons);
    for (auto scaled : s.IconScaled) EXPECT_NE(scaled, 0);

    // Colours as 24-bit red + 256 green + 65536 blue.
    const std::array<std::int32_t, 8> colours{0x00FF00, 0x0000FF, 0xFFFF00, 0x000000,
                                              0xFFFFFF, 0x00FFFF, 0x808080, 0x008000};
    EXPECT_EQ(s.Colours, colours);

    SetBuiltInCapacities(m);
    EXPECT_EQ(m.FirstLoadRow, 1);
    EXPECT_EQ(m.Set.MaxFans, 250);
    EXPECT_EQ(m.Set.BlockedRes, 1000000000);
}

TEST(BuiltInSettings, EveryPresetRow) {
    Model m;
    m.Preset.WallNames[30] = "left over";
    m.Preset.ShockPreset[40] = 9.0f;
    SetBuiltInSettings(m);
    const Presets& p = m.Preset;

    const std::pair<const char*, float> wall[] = {{"Smooth Pipes", 0.003f},          {"Flexible Ducting", 0.0035f},
                                                  {"Concrete Lined Airway", 0.004f}, {"Raisebored Airway", 0.007f},
                                                  {"Smooth Blasted Airway", 0.01f},  {"Average Blasted Airway", 0.012f},
                                                  {"Rough Blasted Airway", 0.018f},  {"Very Rough Blasted", 0.025f},
                                                  {"Timbered Airway", 0.04f},        {"Concrete Shaft Sets", 0.05f}};
    const std::pair<const char*, float> res[] = {
        {"Automatic", 0.0f},       {"Bulkhead", 1e9f},       {"Steel Door", 10.0f},    {"Wood Door", 5.0f},
        {"meshes Brattice", 3.0f}, {"Parachute Stop", 2.0f}, {"High Muck Pile", 1.5f}, {"Med Muck Pile", 1.0f},
        {"Low Muck Pile", 0.5f},   {"Air Curtain", 0.1f}};
    const std::pair<const char*, float> shock[] = {{"None", 0.0f},      {"Slight", 5.0f}, {"Low", 20.0f},
                                                   {"Moderate", 50.0f}, {"High", 100.0f}, {"Very High", 250.0f}};

    for (std::size_t i = 0; i <= 50; ++i) {
        const bool w = i < 10, r = i < 10, s = i < 6;
        EXPECT_EQ(p.WallNames[i], w ? wall[i].first : "") << i;
        EXPECT_EQ(p.WallPreset[i], w ? wall[i].second : 0.0f) << i;
        EXPECT_EQ(p.ResNames[i], r ? res[i].first : (i == 50 ? "Fix Res" : "")) << i;
        EXPECT_EQ(p.ResPreset[i], r ? res[i].second : 0.0f) << i;
        EXPECT_EQ(p.ShockNames[i], s ? shock[i].first : "") << i;
        EXPECT_EQ(p.ShockPreset[i], s ? shock[i].second : 0.0f) << i;
    }
    EXPECT_EQ(p.ResPreset[1], static_cast<float>(m.Set.BlockedRes));
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
