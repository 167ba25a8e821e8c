// The number formatter over the patterns of the unit table and the reports, and the reading
// of typed numbers.
#include <gtest/gtest.h>

#include <cstdint>
#include <initializer_list>
#include <limits>
#include <string>
#include <utility>

#include "model/number_format.h"

using namespace karvane;

namespace {

// Values and the texts they show under one pattern.
void ExpectShown(const char* pattern, std::initializer_list<std::pair<double, const char*>> cases, char decimal = '.') {
    for (auto [value, text] : cases) EXPECT_EQ(FormatNumber(value, pattern, decimal), text) << value << " " << pattern;
}

constexpr double Day = 86400.0;

} // namespace

TEST(NumberFormat, DecimalsRoundHalfAwayFromZero) {
    // Decimal rounding of the value's digits, not of its binary fraction; no negative zero.
    ExpectShown("0.0",
                {{1.25, "1.3"}, {-1.25, "-1.3"}, {0.05, "0.1"}, {12.0, "12.0"}, {99.96, "100.0"}, {-0.04, "0.0"}});
    ExpectShown("0.00", {{0.125, "0.13"}, {2.675, "2.68"}, {1.005, "1.01"}, {101.325, "101.33"}});
    ExpectShown("0", {{0.5, "1"}, {-0.5, "-1"}, {2.5, "3"}, {0.4, "0"}, {-0.0, "0"}, {-0.4, "0"}});
    ExpectShown("0.00000",
                {{123.456789, "123.45679"}, {0.000005, "0.00001"}, {0.0000049, "0.00000"}, {-0.000001, "0.00000"}});
    EXPECT_EQ(FormatNumber(2.675f, "0.00"), "2.68");
    EXPECT_EQ(FormatNumber(-0.0001, "$#,##0"), "$0");
    EXPECT_EQ(FormatNumber(-0.1 / Day, "hh:mm:ss"), "00:00:00");
}

TEST(NumberFormat, ThousandsSeparators) {
    ExpectShown("0,000", {{5.0, "0,005"},
                          {0.0, "0,000"},
                          {12345.0, "12,345"},
                          {1234567.4, "1,234,567"},
                          {999.5, "1,000"},
                          {-1234.0, "-1,234"}});
    ExpectShown("$#,##0", {{1234.5, "$1,235"}, {0.0, "$0"}, {999.4, "$999"}, {-1234567.0, "-$1,234,567"}});
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
    ExpectShown("0 %", {{0.5, "50 %"}, {0.123, "12 %"}, {0.005, "1 %"}, {1.5, "150 %"}, {-0.25, "-25 %"}});
    EXPECT_EQ(FormatNumber(0.1234, "0.0 %"), "12.3 %");
    EXPECT_EQ(FormatNumber(0.8f, "0 %"), "80 %");
    EXPECT_EQ(FormatNumber(1.234, "0.00 m3/s"), "1.23 m3/s");
    EXPECT_EQ(FormatNumber(5.0, "0\"kg\""), "5kg");
    EXPECT_EQ(FormatNumber(5.0, "\\#0"), "#5");
    EXPECT_EQ(FormatNumber(0.5, "#.##"), ".5");
    ExpectShown("#", {{0.3, ""}, {0.7, "1"}});
    EXPECT_EQ(FormatNumber(7.0, "000"), "007");
}

TEST(NumberFormat, FullPrecision) {
    ExpectShown("0.0########", {{1.0, "1.0"},
                                {1.25, "1.25"},
                                {1.0 / 3.0, "0.333333333"},
                                {2.0 / 3.0, "0.666666667"},
                                {123456.789, "123456.789"},
                                {0.0035, "0.0035"}});
    // A Single shows its own digits; the same Single widened to a double shows the binary tail.
    EXPECT_EQ(FormatNumber(0.1f, "0.0########"), "0.1");
    EXPECT_EQ(FormatNumber(2.3f, "0.0########"), "2.3");
    EXPECT_EQ(FormatNumber(static_cast<double>(2.3f), "0.0########"), "2.299999952");
    EXPECT_EQ(FormatNumber(3.28084f, "0.0########"), "3.28084");
}

TEST(NumberFormat, Times) {
    // Times are fractions of a day; the spread divides its seconds by 86404.
    ExpectShown("hh:mm:ss", {{3661.0 / Day, "01:01:01"},
                             {125.0 / 86404.0, "00:02:05"},
                             {0.0, "00:00:00"},
                             {59.5 / Day, "00:01:00"},
                             {59.4 / Day, "00:00:59"},
                             {26.0 / 24.0, "26:00:00"},
                             {-90.0 / Day, "-00:01:30"}});
    ExpectShown("h:mm:ss", {{10800.0 / 86404.0, "3:00:00"}, {(5 * 3600 + 7) / Day, "5:00:07"}});
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
    ExpectShown("", {{1234.5, "1234.5"}, {1e20, "1E+20"}, {-0.0001, "-0.0001"}, {0.0, "0"}});
    EXPECT_EQ(FormatNumber(1.5e-7, "", ','), "1,5E-07");
    EXPECT_EQ(FormatNumber(42, "0,000"), "0,042");
    EXPECT_EQ(FormatNumber(std::int64_t{-7}, "0"), "-7");
    // Unbalanced quotes and a lone escape do not upset the pattern reader.
    EXPECT_EQ(FormatNumber(5.0, "0\"kg"), "5kg");
    EXPECT_EQ(FormatNumber(5.0, "0\\"), "5");
}

TEST(NumberFormat, ParseLeadingNumber) {
    const double max = std::numeric_limits<double>::max();
    const std::pair<std::string, double> cases[] = {{"", 0.0},
                                                    {"abc", 0.0},
                                                    {" 12abc", 12.0},
                                                    {"\t3", 3.0},
                                                    {"1,5", 1.5},
                                                    {"1.5", 1.5},
                                                    {"-.5", -0.5},
                                                    {"+7", 7.0},
                                                    {"5.", 5.0},
                                                    {".", 0.0},
                                                    {",", 0.0},
                                                    {"--3", 0.0},
                                                    {"1e3", 1000.0},
                                                    {"1D2", 100.0},
                                                    {"2.5E-2x", 0.025},
                                                    {"1e", 1.0},
                                                    {"1e999", max},
                                                    {"-1e999", -max},
                                                    {"1e-999", 0.0},
                                                    {std::string(400, '9'), max},
                                                    {std::string("12\0"
                                                                 "3",
                                                                 4),
                                                     12.0}};
    for (const auto& [text, value] : cases) EXPECT_EQ(ParseLeadingNumber(text), value) << text;
}
