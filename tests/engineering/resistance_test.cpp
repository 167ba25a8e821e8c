// Airway resistance from dimensions and presets, the orifice resistance and the shock total.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <string>

#include "engineering/resistance.h"

namespace karvane {
namespace {

// A single-precision value to its last significant digit.
std::string Digits7(double v) {
    char text[64];
    std::snprintf(text, sizeof text, "%.7g", v);
    return text;
}

class ResistanceTest : public ::testing::Test {
protected:
    Model model;

    void SetUp() override {
        model.Preset.WallPreset[4] = 0.01f;
        model.Preset.WallPreset[5] = 0.012f;
        model.Preset.ResPreset[1] = static_cast<float>(BlockedResValue);
        model.Preset.ResPreset[2] = 10;
        model.Preset.ShockPreset[0] = 0;
        model.Preset.ShockPreset[2] = 20;
        model.Preset.ShockPreset[3] = 50;
        model.Preset.ShockPreset[7] = 999; // beyond the built-in rows: never followed
        model.AirwayCount = 1;
    }

    // A rectangular drive 5 x 5 from (0,0,0) to (100,0,0), k 0.012 by preset, no shock.
    Airway& Drive() {
        Airway& a = model.Airways[1];
        a.BranchCode = bc::Rectangular;
        a.Height = 5;
        a.Width = 5;
        a.X2 = 100;
        a.WallType = 5;
        a.ShockType = 0;
        a.ResType = 0;
        return a;
    }
};

TEST_F(ResistanceTest, RectangularDriveAtStandardAndOtherDensities) {
    Airway& a = Drive();
    RecalcAirway(model, 1);
    EXPECT_EQ(a.Resistance, 0.001536f);
    EXPECT_EQ(a.Length, 100.0f);
    EXPECT_EQ(a.WallFactor, 0.012f);
    EXPECT_EQ(a.NoAirways, 1); // 0 is read as 1 and stored back

    model.Set.Density = 0.9f;
    RecalcAirway(model, 1);
    EXPECT_EQ(Digits7(a.Resistance), "0.001152"); // three quarters

    // A custom resistance stands whatever the density, shape, length or parallel count.
    a.ResType = CustomPreset;
    a.Resistance = 3.5f;
    a.NoAirways = 4;
    a.X2 = 300;
    model.Set.Density = 1.5f;
    RecalcAirway(model, 1);
    EXPECT_EQ(a.Resistance, 3.5f);
    EXPECT_EQ(a.Length, 300.0f); // the length is still brought up to date
}

TEST_F(ResistanceTest, ParallelAirwaysDivideTheWholeSum) {
    Airway& a = Drive();
    a.NoAirways = 2;
    RecalcAirway(model, 1);
    EXPECT_EQ(a.Resistance, 0.000384f);

    // A blocked airway adds BlockedRes to the friction part; the division applies to the sum.
    a.ResType = 1;
    RecalcAirway(model, 1);
    EXPECT_EQ(a.Resistance, static_cast<float>((0.001536 + 1e9) / 4));

    a.NoAirways = 1;
    a.ResType = 2;
    RecalcAirway(model, 1);
    EXPECT_EQ(a.Resistance, static_cast<float>(0.001536f + 10.0));

    // With the override, a preset resistance replaces the friction part.
    model.Set.PresetResOverride = 1;
    RecalcAirway(model, 1);
    EXPECT_EQ(a.Resistance, 10.0f);
    a.ResType = 0;
    RecalcAirway(model, 1);
    EXPECT_EQ(a.Resistance, 0.0f);
}

TEST_F(ResistanceTest, LengthIsStoredWholeButUsedUnrounded) {
    Airway& a = Drive();
    a.X2 = 100;
    a.Y2 = 12;       // sqrt(10144) = 100.717...
    a.ShockType = 2; // 20 m of shock
    RecalcAirway(model, 1);
    EXPECT_EQ(a.Length, 100.0f);
    EXPECT_EQ(a.ShockFactor, 20.0f);
    // 0.012 x 20 x 120.717 / 15625, not 0.012 x 20 x 120 / 15625 = 0.0018432.
    EXPECT_EQ(Digits7(a.Resistance).substr(0, 7), "0.00185");
    EXPECT_NEAR(a.Resistance, 0.24 * (std::sqrt(10144.0) + 20) / 15625, 1e-9);

    // A fixed length is left alone and the coordinates no longer matter.
    a.BranchCode |= bc::FixedLength;
    a.Length = 250;
    a.ShockType = 0;
    a.X2 = 1;
    a.Y2 = 0;
    RecalcAirway(model, 1);
    EXPECT_EQ(a.Length, 250.0f);
    EXPECT_EQ(Digits7(a.Resistance), "0.00384");

    // Far-apart coordinates do not overflow the differences.
    a.BranchCode = bc::Rectangular;
    a.X1 = -2000000000;
    a.X2 = 2000000000;
    RecalcAirway(model, 1);
    EXPECT_EQ(a.Length, 4e9f);
}

TEST_F(ResistanceTest, AreaFloorsAndShapes) {
    Airway& a = Drive();
    // Services take 0.8 m2, not 0.6.
    a.BranchCode = bc::Rectangular | bc::Services;
    RecalcAirway(model, 1);
    const double area = static_cast<double>(static_cast<float>(25 - 0.8));
    EXPECT_NEAR(a.Resistance, 0.012 * 20 * 100 / (area * area * area), 1e-9);

    // Area entry of 0.5 m2 with services leaves -0.3, worked as 0.05.
    a.BranchCode = bc::AreaEntry | bc::Services;
    a.Width = 0.5f;
    a.Height = 3;
    RecalcAirway(model, 1);
    EXPECT_EQ(Digits7(a.Resistance).substr(0, 4), "2880"); // 0.012 x 3 x 100 / 0.05^3
    EXPECT_NEAR(a.Resistance, 28800.0, 0.01);

    // A circular airway ends with Height 0 and uses pi as 3.1415926.
    a.BranchCode = bc::Circular;
    a.Width = 2;
    a.Height = 7;
    RecalcAirway(model, 1);
    EXPECT_EQ(a.Height, 0.0f);
    const double circle = static_cast<float>(3.1415926);
    const double rim = static_cast<float>(2 * 3.1415926);
    EXPECT_NEAR(a.Resistance, 0.012 * rim * 100 / (circle * circle * circle), 1e-7);

    // A later shape bit wins: circular and rectangular together is rectangular on Height 0.
    a.BranchCode = bc::Circular | bc::Rectangular;
    a.Height = 4;
    RecalcAirway(model, 1);
    EXPECT_EQ(a.Height, 0.0f);
    EXPECT_NEAR(a.Resistance, 0.012 * 4 * 100 / (0.05 * 0.05 * 0.05), 0.01);

    // No shape, no length, no shock: the floor resistance.
    a.BranchCode = 0;
    a.X2 = 0;
    RecalcAirway(model, 1);
    EXPECT_EQ(a.Resistance, 0.00001f);
}

TEST_F(ResistanceTest, PresetsFollowedOnlyWhereTheyApply) {
    Airway& a = Drive();
    a.ShockType = 7;
    a.ShockFactor = 12;
    a.WallType = CustomPreset;
    a.WallFactor = 0.02f;
    RecalcAirway(model, 1);
    EXPECT_EQ(a.ShockFactor, 12.0f); // rows 6..49 keep the value stored when chosen
    EXPECT_EQ(a.WallFactor, 0.02f);
    EXPECT_EQ(Digits7(a.Resistance), Digits7(0.02 * 20 * 112 / 15625));

    a.ShockType = 3;
    a.WallType = 4;
    RecalcAirway(model, 1);
    EXPECT_EQ(a.ShockFactor, 50.0f);
    EXPECT_EQ(a.WallFactor, 0.01f);

    // Indices outside the tables are never read.
    a.ShockType = -3;
    a.WallType = -1;
    a.ResType = 900;
    RecalcAirway(model, 1);
    EXPECT_EQ(a.ShockFactor, 50.0f);
    EXPECT_EQ(a.WallFactor, 0.01f);
    EXPECT_TRUE(std::isfinite(a.Resistance));
    RecalcAirway(model, 0);
    RecalcAirway(model, MaxAirways + 1);
}

TEST_F(ResistanceTest, FrictionPartAlone) {
    Airway& a = Drive();
    a.ResType = CustomPreset;
    a.Resistance = 7;
    a.NoAirways = 3;
    a.BranchCode |= bc::Services;
    const double r = FrictionResistance(model, 1);
    EXPECT_NEAR(r, 0.001536, 1e-10); // double, not rounded to a single
    EXPECT_NE(r, static_cast<double>(0.001536f));
    EXPECT_EQ(a.Resistance, 7.0f);
    EXPECT_EQ(a.NoAirways, 3);

    a.BranchCode = 0;
    a.X2 = 0;
    EXPECT_EQ(FrictionResistance(model, 1), 0.0); // no floor
    EXPECT_EQ(FrictionResistance(model, -4), 0.0);
}

// The friction part reads a stale airway as RecalcAirway would bring it up to date, and
// leaves the airway untouched: on an airway with no services, preset resistance or parallel
// count, its value rounded to single precision is the resistance RecalcAirway stores.
TEST_F(ResistanceTest, FrictionPartReadsStaleAirwayWithoutWriting) {
    struct Case {
        const char* Name;
        std::int32_t Shape;
        float Height, Width;
        std::int16_t WallType, ShockType;
        float WallFactor, ShockFactor, Length;
    };
    const Case cases[] = {
        {"circular with a stale height", bc::Circular, 9, 4, 5, 2, 0.3f, 1, 3},
        {"circle and rectangle: height cleared first", bc::Circular | bc::Rectangular, 9, 4, 4, 3, 0, 0, 0},
        {"area entry: height is the perimeter", bc::AreaEntry, 11, 20, -1, -1, 0.02f, 7, 50},
        {"fixed length stands", bc::Rectangular | bc::FixedLength, 3, 4, 4, 7, 0.5f, 2, 250},
        {"shock row beyond the built-in ones", bc::Rectangular, 3, 4, 5, 7, 0, 12, 0},
    };
    for (const Case& c : cases) {
        Airway& a = Drive();
        a.BranchCode = c.Shape;
        a.Height = c.Height;
        a.Width = c.Width;
        a.WallType = c.WallType;
        a.ShockType = c.ShockType;
        a.WallFactor = c.WallFactor;
        a.ShockFactor = c.ShockFactor;
        a.Length = c.Length;
        a.X2 = 123;
        a.Y2 = -45;
        a.Z2 = 6;
        a.NoAirways = 1;
        const Airway stale = a;
        const double r = FrictionResistance(model, 1);
        EXPECT_EQ(a, stale) << c.Name;
        RecalcAirway(model, 1);
        EXPECT_EQ(static_cast<float>(r), a.Resistance) << c.Name;
        EXPECT_EQ(FrictionResistance(model, 1), r) << c.Name;
    }
}

TEST(OrificeTest, RegulatorOpening) {
    // (1 / (1 x 0.65) - 1 / 25)^2 x 0.6
    EXPECT_NEAR(OrificeResistance(1.0, 25.0), 1.3472322, 1e-6);
    EXPECT_NEAR(OrificeResistance(0.5, 4.0), std::pow(1 / 0.325 - 0.25, 2) * 0.6, 1e-12);

    Airway a;
    a.BranchCode = bc::Rectangular | bc::Services;
    a.Height = 4;
    a.Width = 5;
    EXPECT_EQ(OrificeAirwayArea(a), 20.0f); // services do not count here
    a.BranchCode = bc::Circular;
    EXPECT_EQ(OrificeAirwayArea(a), static_cast<float>(25 * 3.1415926 / 4));
    a.BranchCode = bc::AreaEntry;
    EXPECT_EQ(OrificeAirwayArea(a), 5.0f);
}

TEST(ShockCalculatorTest, TotalOfTickedRows) {
    const auto si = [](std::int16_t m) { return ShownShockLength(m, 1.0f, 1); };
    std::array<ShockLossEntry, ShockLossRowCount> rows{};
    rows[3].Count = 3; // a count on an unticked row adds nothing
    EXPECT_EQ(ShockTableTotal(rows, si), 0.0f);
    rows[3].Ticked = true;
    EXPECT_EQ(ShockTableTotal(rows, si), 60.0f);
    rows[15] = {true, 1};
    EXPECT_EQ(ShockTableTotal(rows, si), 210.0f);

    // In feet the 45 m row enters as its text at one decimal, 147.6, not 147.6378.
    EXPECT_DOUBLE_EQ(ShownShockLength(45, 3.28084f, 1), 147.6);
    const auto feet = [](std::int16_t m) { return ShownShockLength(m, 3.28084f, 1); };
    std::array<ShockLossEntry, ShockLossRowCount> british{};
    british[1] = {true, 2};
    EXPECT_EQ(ShockTableTotal(british, feet), static_cast<float>(295.2));
    british[18] = {true, 1}; // 6 m = 19.68504 ft, shown 19.7
    EXPECT_EQ(ShockTableTotal(british, feet), static_cast<float>(static_cast<float>(295.2) + 19.7));
}

} // namespace
} // namespace karvane
