#pragma once
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "platform/DateTime.hpp"

namespace pendulon {

// The classic number semantics every part of the product relies on. Nothing else in the code
// base parses or formats a number on its own.

// Leading-number rule: blanks are skipped, the text is read as far as it forms a number
// (sign, digits, one decimal point, an exponent), and no number gives 0. "12.5 MHz" is 12.5,
// "Off" is 0.
double Val(std::string_view text);

// Rounds half to even, as every conversion to Integer or Long does.
double RoundHalfEven(double value);

// Conversions with range check: nullopt when the rounded value does not fit (an overflow, which
// the caller reports through the error report).
std::optional<std::int16_t> ToInteger(double value);
std::optional<std::int32_t> ToLong(double value);

// Number patterns the product uses: "##0.00000", "##0.0#########", "##0.0####", "0.000000 ",
// "0", "00", "000". '0' is a digit always shown, '#' a digit shown when needed, '.' the decimal
// point; any other character is a literal. The value is taken to 15 significant digits and
// then rounded half away from zero, as the classic formatter does.
std::string FormatNumber(double value, std::string_view pattern);

// Text patterns of '@' characters: the text right-aligned in that many characters.
std::string FormatText(std::string_view text, std::string_view pattern);

// General number form: up to 15 significant digits, no trailing zeros, no decimal point for
// whole numbers; scientific ("1E+16", "1.5E-07") for very large or small magnitudes.
std::string GeneralNumber(double value);

// Integer in decimal.
std::string IntegerText(long long value);

// "mmm/dd/yyyy", such as "Jan/02/2002".
std::string FormatDate(const DateTime& date);
// General date form for a file's time stamp: "1/2/2002 3:04:05 AM".
std::string FormatGeneralDate(const DateTime& date);
// A date typed by a user: "1/2/2002" (month first), "Jan/02/2002", "January 2, 2002",
// "2002-01-02"; nullopt when the text is not a date.
std::optional<DateTime> ParseDate(std::string_view text);

}  // namespace pendulon
