#include "platform/DateTime.hpp"

namespace pendulon {

namespace {
// Days from civil, after H. Hinnant's public-domain algorithm.
std::int64_t DaysFromCivil(std::int64_t y, unsigned m, unsigned d) {
    y -= m <= 2;
    const std::int64_t era = (y >= 0 ? y : y - 399) / 400;
    const unsigned yoe = static_cast<unsigned>(y - era * 400);
    const unsigned doy = (153 * (m + (m > 2 ? -3 : 9)) + 2) / 5 + d - 1;
    const unsigned doe = yoe * 365 + yoe / 4 - yoe / 100 + doy;
    return era * 146097 + static_cast<std::int64_t>(doe) - 719468;
}
}  // namespace

DateTime DateTime::FromUnixSeconds(std::int64_t seconds) {
    std::int64_t days = seconds / 86400;
    std::int64_t rest = seconds % 86400;
    if (rest < 0) {
        rest += 86400;
        --days;
    }
    days += 719468;
    const std::int64_t era = (days >= 0 ? days : days - 146096) / 146097;
    const unsigned doe = static_cast<unsigned>(days - era * 146097);
    const unsigned yoe = (doe - doe / 1460 + doe / 36524 - doe / 146096) / 365;
    const std::int64_t y = static_cast<std::int64_t>(yoe) + era * 400;
    const unsigned doy = doe - (365 * yoe + yoe / 4 - yoe / 100);
    const unsigned mp = (5 * doy + 2) / 153;
    const unsigned d = doy - (153 * mp + 2) / 5 + 1;
    const unsigned m = mp < 10 ? mp + 3 : mp - 9;
    DateTime t;
    t.Year = static_cast<int>(y + (m <= 2));
    t.Month = static_cast<int>(m);
    t.Day = static_cast<int>(d);
    t.Hour = static_cast<int>(rest / 3600);
    t.Minute = static_cast<int>((rest % 3600) / 60);
    t.Second = static_cast<int>(rest % 60);
    return t;
}

std::int64_t DateTime::ToUnixSeconds() const {
    return DaysFromCivil(Year, static_cast<unsigned>(Month), static_cast<unsigned>(Day)) * 86400 +
           Hour * 3600 + Minute * 60 + Second;
}

bool IsValidDate(int year, int month, int day) {
    if (year < 100 || year > 9999 || month < 1 || month > 12 || day < 1) return false;
    static const int kDays[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    int limit = kDays[month - 1];
    const bool leap = (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
    if (month == 2 && leap) limit = 29;
    return day <= limit;
}

}  // namespace pendulon
