// The built-in unit table and the conversions to and from what the user sees.
#include <gtest/gtest.h>

#include "model/model.h"
#include "model/number_format.h"

using namespace karvane;

namespace {

Model WithUnits(int system) {
    Model m;
    SetBuiltInUnits(m.Units);
    m.Set.UnitSys = static_cast<std::int16_t>(system);
    return m;
}

} // namespace

// The built-in table itself is checked through the shipped Conversion.dat, which is exactly what
// the writer makes of it (tests/files/program_data_test.cpp).

TEST(Units, DataTypeClasses) {
    const std::pair<int, int> table[] = {{12, 4},  {13, 2},  {22, 8}, {23, 8},  {24, 8},  {25, 9}, {26, 8},
                                         {27, 13}, {28, 13}, {32, 5}, {33, 1},  {34, 10}, {35, 1}, {36, 1},
                                         {37, 14}, {42, 7},  {43, 7}, {44, 11}, {45, 11}, {56, 12}};
    for (auto [type, unit] : table) EXPECT_EQ(DataUnit(type), unit) << type;
    for (int type : {0, 11, 14, 21, 29, 31, 38, 41, 46, 52, 53, 54, 55, 57, -3, 1000})
        EXPECT_EQ(DataUnit(type), 0) << type;
}

TEST(Units, ToDisplayBothSystems) {
    Model si = WithUnits(1), british = WithUnits(2);
    EXPECT_EQ(ToDisplay(si, 12.5, uc::Flow), 12.5f);
    EXPECT_EQ(ToDisplay(british, 1.0, uc::Length), 3.28084f);
    EXPECT_EQ(ToDisplay(british, 100.0, uc::Length), static_cast<float>(100.0 * static_cast<double>(3.28084f)));
    EXPECT_EQ(ToDisplay(british, 10.0, uc::Flow), static_cast<float>(10.0 * static_cast<double>(2.1189f)));
    EXPECT_EQ(ToDisplay(british, 2.0, uc::Velocity), static_cast<float>(2.0 * static_cast<double>(196.85f)));
    EXPECT_EQ(UnitLabel(british, uc::Pressure), "m.in.wg");
    EXPECT_EQ(UnitFormat(si, uc::Friction), "0.00000");
    EXPECT_EQ(UnitLabel(si, 0), "");

    // Class 0 and classes outside the table leave the value alone; so does an unknown system.
    EXPECT_EQ(ToDisplay(british, 7.25, 0), 7.25f);
    EXPECT_EQ(ToDisplay(british, 7.25, 16), 7.25f);
    EXPECT_EQ(ToDisplay(WithUnits(0), 7.0, uc::Length), 7.0f);
    // Beyond a Single's range the value is held at its end.
    EXPECT_EQ(ToDisplay(british, 1e300, uc::Length), std::numeric_limits<float>::max());
    EXPECT_EQ(ToDisplay(british, -1e300, uc::Length), -std::numeric_limits<float>::max());
}

TEST(Units, FromDisplayReadsTheEntry) {
    Model si = WithUnits(1), british = WithUnits(2);
    EXPECT_EQ(FromDisplay(si, "12.5", uc::Flow), 12.5);
    EXPECT_EQ(FromDisplay(si, "12,5", uc::Flow), 12.5);
    EXPECT_EQ(FromDisplay(british, "3.28084", uc::Length), 3.28084 / static_cast<double>(3.28084f));
    EXPECT_NEAR(FromDisplay(british, "100", uc::Length), 30.48, 1e-5);
    EXPECT_EQ(FromDisplay(british, "", uc::Length), 0.0);
    EXPECT_EQ(FromDisplay(british, "abc", uc::Length), 0.0);
    EXPECT_EQ(FromDisplay(si, "  42 m3/s", uc::Flow), 42.0);
    EXPECT_EQ(FromDisplay(si, "-7.5x", 0), -7.5);

    // Round trip: what is shown reads back to the stored value within a Single's precision.
    for (double v : {0.001, 1.0, 12.345, 250.0, 98765.4}) {
        const float shown = ToDisplay(british, v, uc::Pressure);
        const double back = FromDisplay(british, FormatNumber(shown, "0.0########"), uc::Pressure);
        EXPECT_NEAR(back, v, v * 1e-6) << v;
    }

    // A damaged table with a zero factor does not divide by it.
    british.Units.Rows[uc::Mass].Factor[2] = 0.0f;
    EXPECT_EQ(FromDisplay(british, "5", uc::Mass), 5.0);
}
