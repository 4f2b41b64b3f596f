#pragma once
#include <cstdint>
#include <optional>
#include <string>

namespace pendulon {

// A calendar date and time of day, without time zone, as the product's clock gives it.
struct DateTime {
    int Year = 1899;
    int Month = 12;
    int Day = 30;
    int Hour = 0;
    int Minute = 0;
    int Second = 0;

    // Seconds since 1970-01-01 00:00:00, taken as UTC.
    static DateTime FromUnixSeconds(std::int64_t seconds);
    std::int64_t ToUnixSeconds() const;
    bool operator==(const DateTime&) const = default;
};

bool IsValidDate(int year, int month, int day);

}  // namespace pendulon
