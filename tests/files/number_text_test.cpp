// Number forms of the text files, reading under either decimal separator, the saturating
// stores and the line splitter.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>
#include <string>

#include "files/number_text.h"

using namespace karvane;
using namespace karvane::files;

TEST(NumberText, WrittenForms) {
    // Seven significant digits, then exponent form; no negative zero.
    struct Single {
        float Value;
        char Sep;
        const char* Text;
    };
    const Single singles[] = {{1000000000.0f, '.', "1E+09"},
                              {0.00001f, '.', "0.00001"},
                              {1.8f, '.', "1.8"},
                              {-1.5f, '.', "-1.5"},
                              {-1.5f, ',', "-1,5"},
                              {42.0f, '.', "42"},
                              {0.0f, '.', "0"},
                              {-0.0f, '.', "0"},
                              {0.1f, '.', "0.1"},
                              {0.012f, '.', "0.012"},
                              {1234567.0f, '.', "1234567"},
                              {12345678.0f, '.', "1.234568E+07"},
                              {9999999.0f, '.', "9999999"},
                              {-9999999.0f, '.', "-9999999"},
                              {0.000001f, '.', "1E-06"},
                              {1.5e-7f, ',', "1,5E-07"},
                              {2.0f / 3.0f, '.', "0.6666667"}};
    for (const Single& c : singles) EXPECT_EQ(PlainSingle(c.Value, c.Sep), c.Text) << c.Text;
    const std::pair<double, const char*> doubles[] = {
        {0.0, "0"}, {1.0, "1"}, {0.1, "0.1"}, {1e15, "1E+15"}, {123456789012345.0, "123456789012345"}};
    for (auto [value, text] : doubles) EXPECT_EQ(PlainDouble(value, '.'), text);
    EXPECT_EQ(PlainDouble(50.0, ','), "50");
    EXPECT_EQ(PlainInt(-32768), "-32768");
    EXPECT_EQ(PaddedInt(42), " 42 ");
    EXPECT_EQ(PaddedSingle(-1.5f, '.'), "-1.5 ");
    EXPECT_EQ(PaddedSingle(0.0f, ','), " 0 ");
    EXPECT_EQ(PaddedDouble(1.8, ','), " 1,8 ");
    EXPECT_EQ(BoolWord(true) + BoolWord(false), "TrueFalse");
}

TEST(NumberText, FixedPoint) {
    EXPECT_EQ(PlainFixed(0, '.'), "0");
    EXPECT_EQ(PlainFixed(125000, '.'), "12.5");
    EXPECT_EQ(PlainFixed(-1, ','), "-0,0001");
    EXPECT_EQ(PlainFixed(900000000000000LL, '.'), "90000000000");
    EXPECT_EQ(PlainFixed(std::numeric_limits<Fixed4>::min(), '.'), "-922337203685477.5808");
    EXPECT_EQ(PaddedFixed(5110000, '.'), " 511 ");

    // Cut, not rounded, at 4 decimals; held at the ends of the type.
    const std::pair<const char*, Fixed4> fixed[] = {{"12.5", 125000},
                                                    {" -0,0001 ", -1},
                                                    {"1.23456", 12345},
                                                    {"", 0},
                                                    {"x", 0},
                                                    {"1E+03", 10000000},
                                                    {"99999999999999999999999", std::numeric_limits<Fixed4>::max()},
                                                    {"-99999999999999999999999", std::numeric_limits<Fixed4>::min()}};
    for (auto [text, value] : fixed) EXPECT_EQ(ParseFixed(text), value) << text;
    // Every fixed value reads back exactly from its text.
    for (Fixed4 v : {Fixed4{0}, Fixed4{1}, Fixed4{-1}, Fixed4{9999}, Fixed4{-123456789}, Fixed4{90000000000000000}})
        EXPECT_EQ(ParseFixed(PlainFixed(v, ',')), v) << v;
}

TEST(NumberText, ParseEitherSeparator) {
    const double max = std::numeric_limits<double>::max();
    const std::pair<const char*, double> numbers[] = {
        {"1,5", 1.5},        {" 1.5 ", 1.5}, {"-1,5 ", -1.5},   {"\t42\t", 42.0},    {"1E+09", 1e9},
        {"1,5E-07", 1.5e-7}, {".5", 0.5},    {"12abc", 12.0},   {"3E", 3.0},         {"abc", 0.0},
        {"", 0.0},           {"-", 0.0},     {"1e999999", max}, {"-1e999999", -max}, {"1e-999999", 0.0}};
    for (auto [text, value] : numbers) EXPECT_DOUBLE_EQ(ParseNumber(text), value) << text;
    EXPECT_TRUE(IsNumber(" -3 "));
    EXPECT_FALSE(IsNumber("True"));
    const std::pair<const char*, bool> bools[] = {
        {"True", true}, {" true ", true}, {"-1", true}, {"False", false}, {"", false}};
    for (auto [text, value] : bools) EXPECT_EQ(ParseBool(text), value) << text;
}

// A Single written in plain form, read back and written again gives the same text: the second
// write of a network file matches the first.
TEST(NumberText, SingleTextIsStableAfterOneRoundTrip) {
    std::mt19937 rng(7);
    std::uniform_real_distribution<double> mant(1.0, 10.0);
    std::uniform_int_distribution<int> exp10(-9, 12);
    for (int i = 0; i < 20000; ++i) {
        double v = mant(rng) * std::pow(10.0, exp10(rng)) * (i % 2 ? -1.0 : 1.0);
        const std::string once = PlainSingle(static_cast<float>(v), i % 3 ? '.' : ',');
        const float back = ToSingle(ParseNumber(once));
        EXPECT_EQ(PlainSingle(back, i % 3 ? '.' : ','), once) << v;
    }
}

TEST(NumberText, SaturatingStores) {
    EXPECT_EQ(ToInt16(2.5), 2); // half to even
    EXPECT_EQ(ToInt16(3.5), 4);
    EXPECT_EQ(ToInt16(-2.5), -2);
    EXPECT_EQ(ToInt16(40000.0), 32767);
    EXPECT_EQ(ToInt16(-40000.0), -32768);
    EXPECT_EQ(ToInt16(std::nan("")), 0);
    EXPECT_EQ(ToInt32(1e12), 2147483647);
    EXPECT_EQ(ToInt32(-1e12), -2147483647 - 1);
    EXPECT_EQ(ToByte(300.0), 255);
    EXPECT_EQ(ToByte(-1.0), 0);
    EXPECT_EQ(ToSingle(1e300), std::numeric_limits<float>::max());
    EXPECT_EQ(ToSingle(-1e300), -std::numeric_limits<float>::max());
    EXPECT_EQ(ToSingle(std::nan("")), 0.0f);
}

namespace {

// The fields a line splits into, from the first up to the count given.
std::vector<std::string> Split(double version, const std::string& line, char sep, std::size_t count) {
    Fields f;
    SplitLine(version, line, f, sep);
    return std::vector<std::string>(f.begin() + 1, f.begin() + 1 + static_cast<std::ptrdiff_t>(count));
}

} // namespace

TEST(NumberText, SplitLine) {
    using V = std::vector<std::string>;
    // Tab form: the decimal separator of the machine in every field; a line that ends in a tab
    // has one more, empty, field.
    EXPECT_EQ(Split(3.1, "Shaft No.2, upper\t1.5\t\t 7 \tlast", ',', 6),
              (V{"Shaft No,2, upper", "1,5", "", " 7 ", "last", ""}));
    EXPECT_EQ(Split(2.5, "a,b\t2,25", '.', 2), (V{"a.b", "2.25"}));
    EXPECT_EQ(Split(3.1, "x\t", '.', 2), (V{"x", ""}));
    // Comma form: a quoted item keeps its comma, blanks before an item are dropped, an
    // unterminated quote takes the rest of the line, the last field is held to 30 characters.
    EXPECT_EQ(Split(2.4, "\"Drive, east\",1.5, 3 ,,x", ',', 6), (V{"Drive, east", "1,5", "3 ", "", "x", ""}));
    EXPECT_EQ(Split(2.0, "a.b,2.5", '.', 2), (V{"a.b", "2.5"}));
    EXPECT_EQ(Split(1.5, "a," + std::string(40, 'z'), '.', 2), (V{"a", std::string(30, 'z')}));
    EXPECT_EQ(Split(2.4, "\"open,ended", '.', 1), (V{"open,ended"}));

    // Beyond 100 fields the rest of the line stays in field 100.
    for (auto [version, sep] : {std::pair{3.1, '\t'}, std::pair{2.4, ','}}) {
        std::string many;
        for (int i = 1; i <= 150; ++i) many += std::to_string(i) + sep;
        const V f = Split(version, many, '.', 100);
        EXPECT_EQ(f[98], "99");
        EXPECT_EQ(f[99].substr(0, 4), "100" + std::string(1, sep));
    }

    Fields f;
    SplitFields(3.1, "Shaft No.2, upper\t1.5", f);
    EXPECT_EQ(f[1] + "|" + f[2], "Shaft No.2, upper|1.5");
    SplitFields(2.4, "\"No.3\",1.5", f);
    EXPECT_EQ(f[1] + "|" + f[2], "No.3|1.5");
}
