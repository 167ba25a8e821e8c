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

TEST(NumberText, PlainSingleForms) {
    EXPECT_EQ(PlainSingle(1000000000.0f, '.'), "1E+09");
    EXPECT_EQ(PlainSingle(0.00001f, '.'), "0.00001");
    EXPECT_EQ(PlainSingle(1.8f, '.'), "1.8");
    EXPECT_EQ(PlainSingle(-1.5f, '.'), "-1.5");
    EXPECT_EQ(PlainSingle(-1.5f, ','), "-1,5");
    EXPECT_EQ(PlainSingle(42.0f, '.'), "42");
    EXPECT_EQ(PlainSingle(0.0f, '.'), "0");
    EXPECT_EQ(PlainSingle(-0.0f, '.'), "0");
    EXPECT_EQ(PlainSingle(0.1f, '.'), "0.1");
    EXPECT_EQ(PlainSingle(0.012f, '.'), "0.012");
    // Seven significant digits, then exponent form.
    EXPECT_EQ(PlainSingle(1234567.0f, '.'), "1234567");
    EXPECT_EQ(PlainSingle(12345678.0f, '.'), "1.234568E+07");
    EXPECT_EQ(PlainSingle(9999999.0f, '.'), "9999999");
    EXPECT_EQ(PlainSingle(-9999999.0f, '.'), "-9999999");
    EXPECT_EQ(PlainSingle(0.000001f, '.'), "1E-06");
    EXPECT_EQ(PlainSingle(1.5e-7f, ','), "1,5E-07");
    EXPECT_EQ(PlainSingle(2.0f / 3.0f, '.'), "0.6666667");
}

TEST(NumberText, PlainDoubleIntAndPadded) {
    EXPECT_EQ(PlainDouble(0.0, '.'), "0");
    EXPECT_EQ(PlainDouble(1.0, '.'), "1");
    EXPECT_EQ(PlainDouble(0.1, '.'), "0.1");
    EXPECT_EQ(PlainDouble(50.0, ','), "50");
    EXPECT_EQ(PlainDouble(1e15, '.'), "1E+15");
    EXPECT_EQ(PlainDouble(123456789012345.0, '.'), "123456789012345");
    EXPECT_EQ(PlainInt(-32768), "-32768");

    EXPECT_EQ(PaddedInt(42), " 42 ");
    EXPECT_EQ(PaddedSingle(-1.5f, '.'), "-1.5 ");
    EXPECT_EQ(PaddedSingle(0.0f, ','), " 0 ");
    EXPECT_EQ(PaddedSingle(1000000000.0f, '.'), " 1E+09 ");
    EXPECT_EQ(PaddedDouble(1.8, ','), " 1,8 ");
    EXPECT_EQ(BoolWord(true), "True");
    EXPECT_EQ(BoolWord(false), "False");
}

TEST(NumberText, FixedPoint) {
    EXPECT_EQ(PlainFixed(0, '.'), "0");
    EXPECT_EQ(PlainFixed(125000, '.'), "12.5");
    EXPECT_EQ(PlainFixed(-1, ','), "-0,0001");
    EXPECT_EQ(PlainFixed(900000000000000LL, '.'), "90000000000");
    EXPECT_EQ(PlainFixed(std::numeric_limits<Fixed4>::min(), '.'), "-922337203685477.5808");
    EXPECT_EQ(PaddedFixed(5110000, '.'), " 511 ");

    EXPECT_EQ(ParseFixed("12.5"), 125000);
    EXPECT_EQ(ParseFixed(" -0,0001 "), -1);
    EXPECT_EQ(ParseFixed("1.23456"), 12345); // cut, not rounded, at 4 decimals
    EXPECT_EQ(ParseFixed(""), 0);
    EXPECT_EQ(ParseFixed("x"), 0);
    EXPECT_EQ(ParseFixed("1E+03"), 10000000);
    EXPECT_EQ(ParseFixed("99999999999999999999999"), std::numeric_limits<Fixed4>::max());
    EXPECT_EQ(ParseFixed("-99999999999999999999999"), std::numeric_limits<Fixed4>::min());
    // Every fixed value reads back exactly from its text.
    for (Fixed4 v : {Fixed4{0}, Fixed4{1}, Fixed4{-1}, Fixed4{9999}, Fixed4{-123456789}, Fixed4{90000000000000000}})
        EXPECT_EQ(ParseFixed(PlainFixed(v, ',')), v) << v;
}

TEST(NumberText, ParseEitherSeparator) {
    EXPECT_DOUBLE_EQ(ParseNumber("1,5"), 1.5);
    EXPECT_DOUBLE_EQ(ParseNumber(" 1.5 "), 1.5);
    EXPECT_DOUBLE_EQ(ParseNumber("-1,5 "), -1.5);
    EXPECT_DOUBLE_EQ(ParseNumber("\t42\t"), 42.0);
    EXPECT_DOUBLE_EQ(ParseNumber("1E+09"), 1e9);
    EXPECT_DOUBLE_EQ(ParseNumber("1,5E-07"), 1.5e-7);
    EXPECT_DOUBLE_EQ(ParseNumber(".5"), 0.5);
    EXPECT_DOUBLE_EQ(ParseNumber("12abc"), 12.0);
    EXPECT_DOUBLE_EQ(ParseNumber("3E"), 3.0);
    EXPECT_DOUBLE_EQ(ParseNumber("abc"), 0.0);
    EXPECT_DOUBLE_EQ(ParseNumber(""), 0.0);
    EXPECT_DOUBLE_EQ(ParseNumber("-"), 0.0);
    EXPECT_DOUBLE_EQ(ParseNumber("1e999999"), std::numeric_limits<double>::max());
    EXPECT_DOUBLE_EQ(ParseNumber("-1e999999"), -std::numeric_limits<double>::max());
    EXPECT_DOUBLE_EQ(ParseNumber("1e-999999"), 0.0);
    EXPECT_TRUE(IsNumber(" -3 "));
    EXPECT_FALSE(IsNumber("True"));
    EXPECT_TRUE(ParseBool("True"));
    EXPECT_TRUE(ParseBool(" true "));
    EXPECT_TRUE(ParseBool("-1"));
    EXPECT_FALSE(ParseBool("False"));
    EXPECT_FALSE(ParseBool(""));
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

TEST(NumberText, SplitLineTabForm) {
    Fields f;
    SplitLine(3.1, "Shaft No.2, upper\t1.5\t\t 7 \tlast", f, ',');
    EXPECT_EQ(f[1], "Shaft No,2, upper");
    EXPECT_EQ(f[2], "1,5");
    EXPECT_EQ(f[3], "");
    EXPECT_EQ(f[4], " 7 ");
    EXPECT_EQ(f[5], "last");
    EXPECT_EQ(f[6], "");

    SplitLine(2.5, "a,b\t2,25", f, '.');
    EXPECT_EQ(f[1], "a.b");
    EXPECT_EQ(f[2], "2.25");

    // A line that ends in a tab has one more, empty, field.
    SplitLine(3.1, "x\t", f, '.');
    EXPECT_EQ(f[1], "x");
    EXPECT_EQ(f[2], "");

    // Beyond 100 fields the rest of the line stays in field 100.
    std::string many;
    for (int i = 1; i <= 105; ++i) many += std::to_string(i) + "\t";
    SplitLine(3.1, many, f, '.');
    EXPECT_EQ(f[99], "99");
    EXPECT_EQ(f[100].substr(0, 4), "100\t");

    SplitFields(3.1, "Shaft No.2, upper\t1.5", f);
    EXPECT_EQ(f[1], "Shaft No.2, upper");
    EXPECT_EQ(f[2], "1.5");
}

TEST(NumberText, SplitLineCommaForm) {
    Fields f;
    SplitLine(2.4, "\"Drive, east\",1.5, 3 ,,x", f, ',');
    EXPECT_EQ(f[1], "Drive, east"); // quoted item keeps its comma
    EXPECT_EQ(f[2], "1,5");
    EXPECT_EQ(f[3], "3 "); // blanks before an item are dropped
    EXPECT_EQ(f[4], "");
    EXPECT_EQ(f[5], "x");
    EXPECT_EQ(f[6], "");

    SplitLine(2.0, "a.b,2.5", f, '.');
    EXPECT_EQ(f[1], "a.b");
    EXPECT_EQ(f[2], "2.5");

    // The last field is held to 30 characters.
    SplitLine(1.5, "a," + std::string(40, 'z'), f, '.');
    EXPECT_EQ(f[2], std::string(30, 'z'));

    // More than 100 items: no field beyond 100 is touched, and nothing breaks.
    std::string many;
    for (int i = 1; i <= 150; ++i) many += std::to_string(i) + ",";
    SplitLine(2.4, many, f, '.');
    EXPECT_EQ(f[99], "99");
    EXPECT_EQ(f[100].substr(0, 4), "100,");

    SplitFields(2.4, "\"No.3\",1.5", f);
    EXPECT_EQ(f[1], "No.3");
    EXPECT_EQ(f[2], "1.5");

    // An unterminated quote takes the rest of the line.
    SplitLine(2.4, "\"open,ended", f, '.');
    EXPECT_EQ(f[1], "open,ended");
}
