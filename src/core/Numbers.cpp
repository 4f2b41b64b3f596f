#include "core/Numbers.hpp"

#include <algorithm>
#include <array>
#include <cctype>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <vector>

#include "core/Text.hpp"

namespace pendulon {

namespace {
bool IsBlank(char c) {
    return c == ' ' || c == '\t' || c == '\n' || c == '\r';
}

// Decimal digits of |value| to 15 significant digits: digits "d1d2...d15" and the exponent of
// d1, so that |value| = 0.d1d2... x 10^(exponent + 1).
struct Decimal {
    std::string digits;  // without leading zeros, at least one digit
    int exponent = 0;    // power of ten of the first digit
    bool negative = false;
};

Decimal ToDecimal(double value) {
    Decimal d;
    d.negative = std::signbit(value) && value != 0.0;
    if (value == 0.0) {
        d.digits.push_back('0');
        return d;
    }
    char buffer[64];
    const int printed = std::snprintf(buffer, sizeof buffer, "%.14e", std::fabs(value));
    const size_t length =
        printed < 0 ? 0 : std::min(static_cast<size_t>(printed), sizeof buffer - 1);
    // buffer: "d.ddddddddddddddde+XX". The digits are copied one by one: the first, then those
    // after the point up to the exponent (an infinity or a NaN has no exponent and gives 0).
    size_t e = 0;
    while (e < length && buffer[e] != 'e') ++e;
    d.digits.reserve(16);
    if (length > 0)
        d.digits.push_back(buffer[0]);
    for (size_t k = 2; k < e; ++k) d.digits.push_back(buffer[k]);
    d.exponent = std::atoi(e < length ? buffer + e + 1 : buffer);
    return d;
}

// Digits of |value| with exactly `decimals` places, rounded half away from zero on the
// 15-digit decimal form. Returns integer part and fraction part texts.
void FixedDigits(double value, int decimals, std::string& integerPart, std::string& fraction,
                 bool& negative) {
    Decimal d = ToDecimal(value);
    negative = d.negative;
    // Place digits on a grid: index of the digit of 10^k.
    // Build all digits from 10^max(exponent,0) down to 10^-decimals.
    const int high = std::max(d.exponent, 0);
    const int low = -decimals;
    std::string grid;  // from 10^high down to 10^low
    for (int k = high; k >= low; --k) {
        const int index = d.exponent - k;  // position in d.digits
        grid.push_back(index >= 0 && index < static_cast<int>(d.digits.size()) ? d.digits[index]
                                                                               : '0');
    }
    // The first dropped digit decides.
    const int droppedIndex = d.exponent - (low - 1);
    const bool roundUp = droppedIndex >= 0 && droppedIndex < static_cast<int>(d.digits.size()) &&
                         d.digits[droppedIndex] >= '5';
    if (roundUp) {
        int i = static_cast<int>(grid.size()) - 1;
        while (i >= 0) {
            if (grid[i] == '9') {
                grid[i] = '0';
                --i;
            } else {
                ++grid[i];
                break;
            }
        }
        if (i < 0)
            grid.insert(grid.begin(), '1');
    }
    const size_t integerCount = grid.size() - static_cast<size_t>(decimals);
    integerPart = grid.substr(0, integerCount);
    fraction = grid.substr(integerCount);
    // Strip leading zeros of the integer part.
    size_t first = integerPart.find_first_not_of('0');
    integerPart = first == std::string::npos ? std::string() : integerPart.substr(first);
}
}  // namespace

double Val(std::string_view text) {
    std::string number;
    size_t i = 0;
    auto skip = [&] {
        while (i < text.size() && IsBlank(text[i])) ++i;
    };
    skip();
    if (i < text.size() && (text[i] == '-' || text[i] == '+')) {
        number.push_back(text[i]);
        ++i;
    }
    bool digits = false, point = false;
    for (;;) {
        skip();
        if (i >= text.size())
            break;
        const char c = text[i];
        if (std::isdigit(static_cast<unsigned char>(c))) {
            number.push_back(c);
            digits = true;
        } else if (c == '.' && !point) {
            number.push_back(c);
            point = true;
        } else {
            break;
        }
        ++i;
    }
    if (!digits)
        return 0.0;
    // Exponent: E or D, optional sign, at least one digit.
    skip();
    if (i < text.size() && (text[i] == 'e' || text[i] == 'E' || text[i] == 'd' || text[i] == 'D')) {
        size_t j = i + 1;
        std::string exponent = "e";
        while (j < text.size() && IsBlank(text[j])) ++j;
        if (j < text.size() && (text[j] == '-' || text[j] == '+'))
            exponent.push_back(text[j++]);
        bool expDigits = false;
        for (;;) {
            while (j < text.size() && IsBlank(text[j])) ++j;
            if (j < text.size() && std::isdigit(static_cast<unsigned char>(text[j]))) {
                exponent.push_back(text[j++]);
                expDigits = true;
            } else {
                break;
            }
        }
        if (expDigits)
            number += exponent;
    }
    const double value = std::strtod(number.c_str(), nullptr);
    return std::isfinite(value) ? value : 0.0;
}

double RoundHalfEven(double value) {
    if (!std::isfinite(value))
        return value;
    return std::nearbyint(value);  // the default rounding mode is to nearest, ties to even
}

std::optional<std::int16_t> ToInteger(double value) {
    const double r = RoundHalfEven(value);
    if (!(r >= -32768.0 && r <= 32767.0))
        return std::nullopt;
    return static_cast<std::int16_t>(r);
}

std::optional<std::int32_t> ToLong(double value) {
    const double r = RoundHalfEven(value);
    if (!(r >= -2147483648.0 && r <= 2147483647.0))
        return std::nullopt;
    return static_cast<std::int32_t>(r);
}

std::string FormatNumber(double value, std::string_view pattern) {
    // Split the pattern into the number part and literal text around it.
    size_t first = pattern.find_first_of("0#.");
    if (first == std::string_view::npos)
        return std::string(pattern);
    size_t last = pattern.find_last_of("0#.");
    const std::string prefix(pattern.substr(0, first));
    const std::string suffix(pattern.substr(last + 1));
    const std::string_view body = pattern.substr(first, last - first + 1);
    const size_t point = body.find('.');
    const std::string_view intPattern = body.substr(0, point);
    const std::string_view fracPattern =
        point == std::string_view::npos ? std::string_view() : body.substr(point + 1);
    int minInteger = 0;
    for (char c : intPattern)
        if (c == '0')
            ++minInteger;
    int required = 0;
    for (char c : fracPattern)
        if (c == '0')
            ++required;
    const int decimals = static_cast<int>(fracPattern.size());

    std::string integerPart, fraction;
    bool negative = false;
    FixedDigits(value, decimals, integerPart, fraction, negative);
    // Optional decimals: drop trailing zeros down to the required ones.
    while (static_cast<int>(fraction.size()) > required && fraction.back() == '0')
        fraction.pop_back();
    if (static_cast<int>(integerPart.size()) < minInteger) {
        std::string padded(static_cast<size_t>(minInteger) - integerPart.size(), '0');
        padded += integerPart;
        integerPart = std::move(padded);
    }
    const bool zero = integerPart.find_first_not_of('0') == std::string::npos &&
                      fraction.find_first_not_of('0') == std::string::npos;
    std::string out = prefix;
    if (negative && !zero)
        out += "-";
    out += integerPart;
    if (point != std::string_view::npos && (!fraction.empty() || decimals == 0)) {
        out += ".";
        out += fraction;
    } else if (point != std::string_view::npos && fraction.empty() && required == 0 &&
               decimals > 0) {
        // "#.##" with nothing to show keeps its point, as the classic formatter does.
        out += ".";
    }
    out += suffix;
    return out;
}

std::string FormatText(std::string_view text, std::string_view pattern) {
    size_t width = 0;
    for (char c : pattern)
        if (c == '@')
            ++width;
    if (text.size() >= width)
        return std::string(text);
    return std::string(width - text.size(), ' ') + std::string(text);
}

std::string GeneralNumber(double value) {
    if (value == 0.0)
        return "0";
    if (!std::isfinite(value))
        return value > 0 ? "1.#INF" : "-1.#INF";
    Decimal d = ToDecimal(value);
    while (d.digits.size() > 1 && d.digits.back() == '0') d.digits.pop_back();
    std::string out;
    if (d.negative)
        out.push_back('-');
    if (d.exponent >= 15 || d.exponent < -5) {
        out.push_back(d.digits[0]);
        if (d.digits.size() > 1) {
            out.push_back('.');
            out.append(d.digits, 1);
        }
        char exponent[16];
        std::snprintf(exponent, sizeof exponent, "E%c%02d", d.exponent < 0 ? '-' : '+',
                      std::abs(d.exponent));
        return out + exponent;
    }
    if (d.exponent < 0) {
        out.append("0.");
        out.append(static_cast<size_t>(-d.exponent - 1), '0');
        out += d.digits;
        return out;
    }
    const size_t integerCount = static_cast<size_t>(d.exponent) + 1;
    if (d.digits.size() <= integerCount) {
        out += d.digits;
        out.append(integerCount - d.digits.size(), '0');
    } else {
        out.append(d.digits, 0, integerCount);
        out.push_back('.');
        out.append(d.digits, integerCount);
    }
    return out;
}

std::string IntegerText(long long value) {
    return std::to_string(value);
}

namespace {
const std::array<const char*, 12> kMonths = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                             "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
const std::array<const char*, 12> kMonthNames = {"january",   "february", "march",    "april",
                                                 "may",       "june",     "july",     "august",
                                                 "september", "october",  "november", "december"};

int MonthFromName(const std::string& word) {
    const std::string lower = LCase(word);
    if (lower.size() < 3)
        return 0;
    for (int m = 0; m < 12; ++m) {
        const std::string name = kMonthNames[static_cast<size_t>(m)];
        if (name.compare(0, lower.size(), lower) == 0)
            return m + 1;
    }
    return 0;
}
}  // namespace

std::string FormatDate(const DateTime& date) {
    char buffer[32];
    std::snprintf(buffer, sizeof buffer, "%s/%02d/%04d",
                  kMonths[static_cast<size_t>((date.Month + 11) % 12)], date.Day, date.Year);
    return buffer;
}

std::string FormatGeneralDate(const DateTime& date) {
    const int hour12 = date.Hour % 12 == 0 ? 12 : date.Hour % 12;
    char buffer[64];
    std::snprintf(buffer, sizeof buffer, "%d/%d/%04d %d:%02d:%02d %s", date.Month, date.Day,
                  date.Year, hour12, date.Minute, date.Second, date.Hour < 12 ? "AM" : "PM");
    return buffer;
}

std::optional<DateTime> ParseDate(std::string_view input) {
    // Split into tokens of digits and letters; separators are / - , . and blanks.
    std::string text = Trim(input);
    std::vector<std::string> tokens;
    std::string current;
    auto flush = [&] {
        if (!current.empty())
            tokens.push_back(current);
        current.clear();
    };
    bool isoDashes = false;
    for (size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        if (std::isalnum(static_cast<unsigned char>(c))) {
            if (!current.empty() &&
                (std::isdigit(static_cast<unsigned char>(c)) != 0) !=
                    (std::isdigit(static_cast<unsigned char>(current.back())) != 0))
                flush();
            current.push_back(c);
        } else if (c == '/' || c == '-' || c == ',' || c == '.' || c == ' ') {
            if (c == '-' && tokens.empty() && current.size() == 4)
                isoDashes = true;
            flush();
        } else {
            return std::nullopt;
        }
    }
    flush();
    if (tokens.size() != 3)
        return std::nullopt;
    auto number = [](const std::string& t) -> int {
        if (t.empty() || t.size() > 4)
            return -1;
        for (char c : t)
            if (!std::isdigit(static_cast<unsigned char>(c)))
                return -1;
        return std::atoi(t.c_str());
    };
    int year = -1, month = -1, day = -1;
    if (isoDashes) {
        year = number(tokens[0]);
        month = number(tokens[1]);
        day = number(tokens[2]);
    } else if (MonthFromName(tokens[0]) != 0) {
        month = MonthFromName(tokens[0]);
        day = number(tokens[1]);
        year = number(tokens[2]);
    } else if (MonthFromName(tokens[1]) != 0) {
        day = number(tokens[0]);
        month = MonthFromName(tokens[1]);
        year = number(tokens[2]);
    } else {
        month = number(tokens[0]);
        day = number(tokens[1]);
        year = number(tokens[2]);
    }
    if (year < 0 || month < 0 || day < 0)
        return std::nullopt;
    if (year < 100 && tokens[2].size() <= 2 && !isoDashes)
        year += year < 30 ? 2000 : 1900;
    if (!IsValidDate(year, month, day))
        return std::nullopt;
    DateTime result;
    result.Year = year;
    result.Month = month;
    result.Day = day;
    return result;
}

}  // namespace pendulon
