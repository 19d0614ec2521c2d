#include "Engine/IsoDate.h"

#include <algorithm>
#include <array>
#include <cmath>

#include <fmt/format.h>

namespace ambrel {

namespace {

using std::chrono::sys_days;
using std::chrono::year;
using std::chrono::year_month_day;

/// Reads the digits at the places that `pattern` marks with '0', and compares the others.
bool matches(std::string_view text, std::string_view pattern) {
    return std::equal(text.begin(), text.end(), pattern.begin(), pattern.end(), [](char character, char expected) {
        return expected == '0' ? character >= '0' && character <= '9' : character == expected;
    });
}

int number(std::string_view digits) {
    int value = 0;
    for (const char digit : digits) {
        value = 10 * value + (digit - '0');
    }
    return value;
}

/// Seconds since midnight; absent unless hours and minutes fit on a clock.
std::optional<int> timeOfDay(int hours, int minutes, int seconds) {
    if (hours > 23 || minutes > 59 || seconds > 59) {
        return std::nullopt;
    }
    return (hours * 60 + minutes) * 60 + seconds;
}

/// East of UTC, in seconds.
std::optional<int> parseOffset(std::string_view text) {
    if (text == "Z") {
        return 0;
    }
    const bool east = text.starts_with('+');
    if (!east && !text.starts_with('-')) {
        return std::nullopt;
    }
    text.remove_prefix(1);
    if (!matches(text, "00:00") && !matches(text, "0000")) {
        return std::nullopt;
    }
    const auto seconds = timeOfDay(number(text.substr(0, 2)), number(text.substr(text.size() - 2)), 0);
    return seconds && !east ? -*seconds : seconds;
}

} // namespace

std::string formatIsoDate(Date date) {
    static constexpr Date first = sys_days(year(0) / 1 / 1);
    static constexpr Date end = sys_days(year(10000) / 1 / 1);
    // An undefined date fails both comparisons.
    if (!(date >= first && date < end)) {
        return "?";
    }
    const auto second = std::chrono::floor<std::chrono::seconds>(date);
    const auto day = std::chrono::floor<std::chrono::days>(second);
    const year_month_day calendar(day);
    const std::chrono::hh_mm_ss time(second - day);
    return fmt::format("{:04}-{:02}-{:02}T{:02}:{:02}:{:02}Z", static_cast<int>(calendar.year()),
                       static_cast<unsigned>(calendar.month()), static_cast<unsigned>(calendar.day()),
                       time.hours().count(), time.minutes().count(), time.seconds().count());
}

std::optional<Date> parseIsoDate(std::string_view text) {
    constexpr std::string_view pattern = "0000-00-00T00:00:00";
    if (!matches(text.substr(0, pattern.size()), pattern)) {
        return std::nullopt;
    }
    const year_month_day calendar(year(number(text.substr(0, 4))),
                                  std::chrono::month(static_cast<unsigned>(number(text.substr(5, 2)))),
                                  std::chrono::day(static_cast<unsigned>(number(text.substr(8, 2)))));
    const auto time = timeOfDay(number(text.substr(11, 2)), number(text.substr(14, 2)), number(text.substr(17, 2)));
    const auto offset = parseOffset(text.substr(pattern.size()));
    if (!calendar.ok() || !time || !offset) {
        return std::nullopt;
    }
    return Date(sys_days(calendar)) + std::chrono::seconds(*time - *offset);
}

} // namespace ambrel
