#include <gtest/gtest.h>

#include "core/Numbers.hpp"

namespace pendulon {
namespace {

TEST(Val, ReadsLeadingNumberAndStopsAtUnit) {
    EXPECT_DOUBLE_EQ(Val("12.5 MHz"), 12.5);
}
TEST(Val, OffAndBlankTextGiveZero) {
    EXPECT_EQ(Val("Off"), 0.0);
    EXPECT_EQ(Val(""), 0.0);
    EXPECT_EQ(Val("    "), 0.0);
    EXPECT_EQ(Val("N/A"), 0.0);
}
TEST(Val, SkipsBlanksInsideTheNumber) {
    EXPECT_DOUBLE_EQ(Val("  1 2 3"), 123.0);
    EXPECT_DOUBLE_EQ(Val(" - 4.5"), -4.5);
}
TEST(Val, ReadsExponent) {
    EXPECT_DOUBLE_EQ(Val("1.5e3"), 1500.0);
    EXPECT_DOUBLE_EQ(Val("2E-2x"), 0.02);
    EXPECT_DOUBLE_EQ(Val("1e"), 1.0);
    // "E" followed by a letter is no exponent.
    EXPECT_DOUBLE_EQ(Val("12.5 Each"), 12.5);
}
TEST(Val, StopsAtSecondDecimalPoint) {
    EXPECT_DOUBLE_EQ(Val("1.2.3"), 1.2);
}
TEST(Val, ReadsSignAndLeadingPoint) {
    EXPECT_DOUBLE_EQ(Val("-3.25"), -3.25);
    EXPECT_DOUBLE_EQ(Val(".5"), 0.5);
    EXPECT_DOUBLE_EQ(Val("+7"), 7.0);
}

TEST(RoundHalfEven, TiesGoToEvenNeighbour) {
    EXPECT_EQ(RoundHalfEven(0.5), 0.0);
    EXPECT_EQ(RoundHalfEven(1.5), 2.0);
    EXPECT_EQ(RoundHalfEven(2.5), 2.0);
    EXPECT_EQ(RoundHalfEven(3.5), 4.0);
    EXPECT_EQ(RoundHalfEven(-2.5), -2.0);
    EXPECT_EQ(RoundHalfEven(2.4999), 2.0);
    EXPECT_EQ(RoundHalfEven(2.5001), 3.0);
}

TEST(ToInteger, ConvertsInRangeAndFailsBeyondSixteenBits) {
    EXPECT_EQ(ToInteger(32767.4), std::optional<std::int16_t>(32767));
    EXPECT_FALSE(ToInteger(32767.5).has_value());
    EXPECT_EQ(ToInteger(-32768.5), std::optional<std::int16_t>(-32768));
    EXPECT_FALSE(ToInteger(-32769.0).has_value());
    EXPECT_EQ(ToInteger(2.5), std::optional<std::int16_t>(2));
}

TEST(ToLong, ConvertsInRangeAndFailsBeyondThirtyTwoBits) {
    EXPECT_EQ(ToLong(2147483647.0), std::optional<std::int32_t>(2147483647));
    EXPECT_FALSE(ToLong(2147483647.5).has_value());
    EXPECT_EQ(ToLong(-2147483648.5), std::optional<std::int32_t>(-2147483647 - 1));
    EXPECT_FALSE(ToLong(-2147483649.0).has_value());
    EXPECT_FALSE(ToLong(9e18).has_value());
}

TEST(FormatNumber, FixedFiveDecimals) {
    EXPECT_EQ(FormatNumber(5, "##0.00000"), "5.00000");
    EXPECT_EQ(FormatNumber(0.5, "##0.00000"), "0.50000");
    EXPECT_EQ(FormatNumber(1000, "##0.00000"), "1000.00000");
    EXPECT_EQ(FormatNumber(14.31818, "##0.00000"), "14.31818");
    EXPECT_EQ(FormatNumber(-2.5, "##0.00000"), "-2.50000");
    // Rounded half away from zero on the 15-digit decimal form.
    EXPECT_EQ(FormatNumber(1.234565, "##0.00000"), "1.23457");
}
TEST(FormatNumber, LongPatternDropsTrailingZerosKeepsOneDecimal) {
    EXPECT_EQ(FormatNumber(100, "##0.0#########"), "100.0");
    EXPECT_EQ(FormatNumber(14.31818, "##0.0#########"), "14.31818");
    EXPECT_EQ(FormatNumber(1.0 / 3.0, "##0.0#########"), "0.3333333333");
}
TEST(FormatNumber, ShortPatternHasAtMostFiveDecimals) {
    EXPECT_EQ(FormatNumber(66.666666667, "##0.0####"), "66.66667");
    EXPECT_EQ(FormatNumber(80, "##0.0####"), "80.0");
    EXPECT_EQ(FormatNumber(0.15, "##0.0####"), "0.15");
}
TEST(FormatNumber, SixDecimalsWithTrailingBlank) {
    EXPECT_EQ(FormatNumber(212.5, "0.000000 "), "212.500000 ");
    EXPECT_EQ(FormatNumber(0, "0.000000 "), "0.000000 ");
    EXPECT_EQ(FormatNumber(2.0 * 14.31818 * 141 / 19, "0.000000 "), "212.511935 ");
}
TEST(FormatNumber, IntegerPatterns) {
    EXPECT_EQ(FormatNumber(2.5, "0"), "3");
    EXPECT_EQ(FormatNumber(3.5, "0"), "4");
    EXPECT_EQ(FormatNumber(-2.5, "0"), "-3");
    EXPECT_EQ(FormatNumber(5, "00"), "05");
    EXPECT_EQ(FormatNumber(12, "00"), "12");
    EXPECT_EQ(FormatNumber(7, "000"), "007");
    EXPECT_EQ(FormatNumber(1234, "000"), "1234");
}
TEST(FormatText, AtSignsRightAlignText) {
    EXPECT_EQ(FormatText("5", "@@@"), "  5");
    EXPECT_EQ(FormatText("12", "@@@"), " 12");
    EXPECT_EQ(FormatText("1234", "@@@"), "1234");
}

TEST(GeneralNumber, WholeNumbersHaveNoPoint) {
    EXPECT_EQ(GeneralNumber(125), "125");
    EXPECT_EQ(GeneralNumber(0), "0");
    EXPECT_EQ(GeneralNumber(-30), "-30");
}
TEST(GeneralNumber, FractionsWithoutTrailingZeros) {
    EXPECT_EQ(GeneralNumber(212.5), "212.5");
    EXPECT_EQ(GeneralNumber(0.1), "0.1");
    EXPECT_EQ(GeneralNumber(66.66667), "66.66667");
}
TEST(GeneralNumber, FifteenSignificantDigits) {
    EXPECT_EQ(GeneralNumber(1.0 / 3.0), "0.333333333333333");
    EXPECT_EQ(GeneralNumber(123456789012345.0), "123456789012345");
    EXPECT_EQ(GeneralNumber(1e15), "1E+15");
}

TEST(FormatDate, MonthAbbreviationDayYear) {
    DateTime date;
    date.Year = 2002;
    date.Month = 1;
    date.Day = 2;
    EXPECT_EQ(FormatDate(date), "Jan/02/2002");
    date.Month = 12;
    date.Day = 31;
    EXPECT_EQ(FormatDate(date), "Dec/31/2002");
}
TEST(ParseDate, MonthFirstDateReadsBackInProductForm) {
    const auto date = ParseDate("1/2/2002");
    ASSERT_TRUE(date.has_value());
    EXPECT_EQ(FormatDate(*date), "Jan/02/2002");
}
TEST(ParseDate, ProductFormRoundTrips) {
    const auto date = ParseDate("Mar/15/2024");
    ASSERT_TRUE(date.has_value());
    EXPECT_EQ(FormatDate(*date), "Mar/15/2024");
}
TEST(ParseDate, RejectsNonDates) {
    EXPECT_FALSE(ParseDate("hello").has_value());
    EXPECT_FALSE(ParseDate("2/30/2002").has_value());
    EXPECT_FALSE(ParseDate("").has_value());
}

}  // namespace
}  // namespace pendulon
