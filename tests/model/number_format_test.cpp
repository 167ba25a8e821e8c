// The number formatter over the patterns of the unit table and the reports, and the reading
// of typed numbers.
#include <gtest/gtest.h>

#include <cstdint>
#include <limits>

#include "model/number_format.h"

using namespace karvane;

TEST(NumberFormat, DecimalsRoundHalfAwayFromZero) {
    EXPECT_EQ(FormatNumber(1.25, "0.0"), "1.3");
    EXPECT_EQ(FormatNumber(-1.25, "0.0"), "-1.3");
    EXPECT_EQ(FormatNumber(0.05, "0.0"), "0.1");
    EXPECT_EQ(FormatNumber(12.0, "0.0"), "12.0");
    EXPECT_EQ(FormatNumber(0.125, "0.00"), "0.13");
    // Decimal rounding of the value's digits, not of its binary fraction.
    EXPECT_EQ(FormatNumber(2.675, "0.00"), "2.68");
    EXPECT_EQ(FormatNumber(1.005, "0.00"), "1.01");
    EXPECT_EQ(FormatNumber(2.675f, "0.00"), "2.68");
    EXPECT_EQ(FormatNumber(99.96, "0.0"), "100.0");
    EXPECT_EQ(FormatNumber(0.5, "0"), "1");
    EXPECT_EQ(FormatNumber(-0.5, "0"), "-1");
    EXPECT_EQ(FormatNumber(2.5, "0"), "3");
    EXPECT_EQ(FormatNumber(0.4, "0"), "0");
    EXPECT_EQ(FormatNumber(123.456789, "0.00000"), "123.45679");
    EXPECT_EQ(FormatNumber(0.000005, "0.00000"), "0.00001");
    EXPECT_EQ(FormatNumber(0.0000049, "0.00000"), "0.00000");
    EXPECT_EQ(FormatNumber(101.325, "0.00"), "101.33");
}

TEST(NumberFormat, NoNegativeZero) {
    EXPECT_EQ(FormatNumber(-0.04, "0.0"), "0.0");
    EXPECT_EQ(FormatNumber(-0.0, "0"), "0");
    EXPECT_EQ(FormatNumber(-0.4, "0"), "0");
    EXPECT_EQ(FormatNumber(-0.000001, "0.00000"), "0.00000");
    EXPECT_EQ(FormatNumber(-0.0001, "$#,##0"), "$0");
    EXPECT_EQ(FormatNumber(-0.1 / 86400.0, "hh:mm:ss"), "00:00:00");
}

TEST(NumberFormat, ThousandsSeparators) {
    EXPECT_EQ(FormatNumber(5.0, "0,000"), "0,005");
    EXPECT_EQ(FormatNumber(0.0, "0,000"), "0,000");
    EXPECT_EQ(FormatNumber(12345.0, "0,000"), "12,345");
    EXPECT_EQ(FormatNumber(1234567.4, "0,000"), "1,234,567");
    EXPECT_EQ(FormatNumber(999.5, "0,000"), "1,000");
    EXPECT_EQ(FormatNumber(-1234.0, "0,000"), "-1,234");
    EXPECT_EQ(FormatNumber(1234.5, "$#,##0"), "$1,235");
    EXPECT_EQ(FormatNumber(0.0, "$#,##0"), "$0");
    EXPECT_EQ(FormatNumber(999.4, "$#,##0"), "$999");
    EXPECT_EQ(FormatNumber(-1234567.0, "$#,##0"), "-$1,234,567");
    EXPECT_EQ(FormatNumber(1e15, "#,##0"), "1,000,000,000,000,000");
    // Commas right behind the digits divide by a thousand.
    EXPECT_EQ(FormatNumber(1234567.0, "#,##0,"), "1,235");
    EXPECT_EQ(FormatNumber(1234.0, "0.0,"), "1.2");
    EXPECT_EQ(FormatNumber(1234.0, "0,.0"), "1.2");
}

TEST(NumberFormat, CommaDecimalSeparator) {
    EXPECT_EQ(FormatNumber(1234.5, "0.0", ','), "1234,5");
    EXPECT_EQ(FormatNumber(-0.25, "0.00", ','), "-0,25");
    // The thousands separator steps aside when it would equal the decimal separator.
    EXPECT_EQ(FormatNumber(12345.0, "0,000", ','), "12.345");
    EXPECT_EQ(FormatNumber(1234567.891, "#,##0.00", ',', '.'), "1.234.567,89");
    EXPECT_EQ(FormatNumber(1234567.891, "#,##0.00", '.', ' '), "1 234 567.89");
    EXPECT_EQ(FormatNumber(0.5, "0.0########", ','), "0,5");
}

TEST(NumberFormat, PercentLiteralsAndOptionalDigits) {
    EXPECT_EQ(FormatNumber(0.5, "0 %"), "50 %");
    EXPECT_EQ(FormatNumber(0.123, "0 %"), "12 %");
    EXPECT_EQ(FormatNumber(0.005, "0 %"), "1 %");
    EXPECT_EQ(FormatNumber(1.5, "0 %"), "150 %");
    EXPECT_EQ(FormatNumber(-0.25, "0 %"), "-25 %");
    EXPECT_EQ(FormatNumber(0.1234, "0.0 %"), "12.3 %");
    EXPECT_EQ(FormatNumber(0.8f, "0 %"), "80 %");
    EXPECT_EQ(FormatNumber(1.234, "0.00 m3/s"), "1.23 m3/s");
    EXPECT_EQ(FormatNumber(5.0, "0\"kg\""), "5kg");
    EXPECT_EQ(FormatNumber(5.0, "\\#0"), "#5");
    EXPECT_EQ(FormatNumber(0.5, "#.##"), ".5");
    EXPECT_EQ(FormatNumber(0.3, "#"), "");
    EXPECT_EQ(FormatNumber(0.7, "#"), "1");
    EXPECT_EQ(FormatNumber(7.0, "000"), "007");
}

TEST(NumberFormat, FullPrecision) {
    EXPECT_EQ(FormatNumber(1.0, "0.0########"), "1.0");
    EXPECT_EQ(FormatNumber(1.25, "0.0########"), "1.25");
    EXPECT_EQ(FormatNumber(1.0 / 3.0, "0.0########"), "0.333333333");
    EXPECT_EQ(FormatNumber(2.0 / 3.0, "0.0########"), "0.666666667");
    EXPECT_EQ(FormatNumber(123456.789, "0.0########"), "123456.789");
    EXPECT_EQ(FormatNumber(0.0035, "0.0########"), "0.0035");
    // A Single shows its own digits; the same Single widened to a double shows the binary tail.
    EXPECT_EQ(FormatNumber(0.1f, "0.0########"), "0.1");
    EXPECT_EQ(FormatNumber(2.3f, "0.0########"), "2.3");
    EXPECT_EQ(FormatNumber(static_cast<double>(2.3f), "0.0########"), "2.299999952");
    EXPECT_EQ(FormatNumber(3.28084f, "0.0########"), "3.28084");
}

TEST(NumberFormat, Times) {
    // Times are fractions of a day; the spread divides its seconds by 86404.
    EXPECT_EQ(FormatNumber(3661.0 / 86400.0, "hh:mm:ss"), "01:01:01");
    EXPECT_EQ(FormatNumber(125.0 / 86404.0, "hh:mm:ss"), "00:02:05");
    EXPECT_EQ(FormatNumber(10800.0 / 86404.0, "h:mm:ss"), "3:00:00");
    EXPECT_EQ(FormatNumber(0.0, "hh:mm:ss"), "00:00:00");
    EXPECT_EQ(FormatNumber((5 * 3600 + 7) / 86400.0, "h:mm:ss"), "5:00:07");
    EXPECT_EQ(FormatNumber(59.5 / 86400.0, "hh:mm:ss"), "00:01:00");
    EXPECT_EQ(FormatNumber(59.4 / 86400.0, "hh:mm:ss"), "00:00:59");
    EXPECT_EQ(FormatNumber(26.0 / 24.0, "hh:mm:ss"), "26:00:00");
    EXPECT_EQ(FormatNumber(-90.0 / 86400.0, "hh:mm:ss"), "-00:01:30");
    EXPECT_EQ(FormatNumber(3723.0f / 86404.0f, "h:m:s"), "1:2:3");
}

TEST(NumberFormat, ExtremesAndGeneralForm) {
    EXPECT_EQ(FormatNumber(1e20, "0"), "100000000000000000000");
    EXPECT_EQ(FormatNumber(1e-300, "0.00"), "0.00");
    EXPECT_EQ(FormatNumber(std::numeric_limits<double>::max(), "0").size(), 309u);
    EXPECT_EQ(FormatNumber(std::numeric_limits<double>::quiet_NaN(), "0.0"), "NaN");
    EXPECT_EQ(FormatNumber(-std::numeric_limits<double>::infinity(), "0.0"), "-Infinity");
    EXPECT_EQ(FormatNumber(std::numeric_limits<float>::infinity(), "hh:mm:ss"), "Infinity");
    EXPECT_FALSE(FormatNumber(1e300, "hh:mm:ss").empty());
    EXPECT_EQ(FormatNumber(1234.5, ""), "1234.5");
    EXPECT_EQ(FormatNumber(1e20, ""), "1E+20");
    EXPECT_EQ(FormatNumber(-0.0001, ""), "-0.0001");
    EXPECT_EQ(FormatNumber(1.5e-7, "", ','), "1,5E-07");
    EXPECT_EQ(FormatNumber(0.0, ""), "0");
    EXPECT_EQ(FormatNumber(42, "0,000"), "0,042");
    EXPECT_EQ(FormatNumber(std::int64_t{-7}, "0"), "-7");
    // Unbalanced quotes and a lone escape do not upset the pattern reader.
    EXPECT_EQ(FormatNumber(5.0, "0\"kg"), "5kg");
    EXPECT_EQ(FormatNumber(5.0, "0\\"), "5");
}

TEST(NumberFormat, ParseLeadingNumber) {
    EXPECT_EQ(ParseLeadingNumber(""), 0.0);
    EXPECT_EQ(ParseLeadingNumber("abc"), 0.0);
    EXPECT_EQ(ParseLeadingNumber(" 12abc"), 12.0);
    EXPECT_EQ(ParseLeadingNumber("\t3"), 3.0);
    EXPECT_EQ(ParseLeadingNumber("1,5"), 1.5);
    EXPECT_EQ(ParseLeadingNumber("1.5"), 1.5);
    EXPECT_EQ(ParseLeadingNumber("-.5"), -0.5);
    EXPECT_EQ(ParseLeadingNumber("+7"), 7.0);
    EXPECT_EQ(ParseLeadingNumber("5."), 5.0);
    EXPECT_EQ(ParseLeadingNumber("."), 0.0);
    EXPECT_EQ(ParseLeadingNumber(","), 0.0);
    EXPECT_EQ(ParseLeadingNumber("--3"), 0.0);
    EXPECT_EQ(ParseLeadingNumber("1e3"), 1000.0);
    EXPECT_EQ(ParseLeadingNumber("1D2"), 100.0);
    EXPECT_EQ(ParseLeadingNumber("2.5E-2x"), 0.025);
    EXPECT_EQ(ParseLeadingNumber("1e"), 1.0);
    EXPECT_EQ(ParseLeadingNumber("1e999"), std::numeric_limits<double>::max());
    EXPECT_EQ(ParseLeadingNumber("-1e999"), -std::numeric_limits<double>::max());
    EXPECT_EQ(ParseLeadingNumber("1e-999"), 0.0);
    EXPECT_EQ(ParseLeadingNumber(std::string(400, '9')), std::numeric_limits<double>::max());
    EXPECT_EQ(ParseLeadingNumber(std::string("12\0"
                                             "3",
                                             4)),
              12.0);
}
