#include "Models/RelativeTime.h"

#include "Models/UserLocale.h"

#include <array>
#include <memory>

#include <unicode/calendar.h>
#include <unicode/reldatefmt.h>

namespace ambrel {

namespace {

struct Unit {
    UCalendarDateFields field;
    URelativeDateTimeUnit name;
};

constexpr std::array units{Unit{UCAL_YEAR, UDAT_REL_UNIT_YEAR},         Unit{UCAL_MONTH, UDAT_REL_UNIT_MONTH},
                           Unit{UCAL_WEEK_OF_YEAR, UDAT_REL_UNIT_WEEK}, Unit{UCAL_DATE, UDAT_REL_UNIT_DAY},
                           Unit{UCAL_HOUR_OF_DAY, UDAT_REL_UNIT_HOUR},  Unit{UCAL_MINUTE, UDAT_REL_UNIT_MINUTE},
                           Unit{UCAL_SECOND, UDAT_REL_UNIT_SECOND}};

struct Distance {
    double count;
    URelativeDateTimeUnit unit;
};

UDate milliseconds(Date date) {
    return std::chrono::duration<double, std::milli>(date.time_since_epoch()).count();
}

Distance distance(icu::Calendar& calendar, UDate date, UErrorCode& status) {
    for (const auto& unit : units) {
        if (const auto count = calendar.fieldDifference(date, unit.field, status); count != 0) {
            return {static_cast<double>(count), unit.name};
        }
    }
    // The negative zero is one that has passed.
    return {-0.0, UDAT_REL_UNIT_SECOND};
}

} // namespace

std::string relativeTime(Date date, Date now, const std::string& locale) {
    const auto chosen = localeNamed(locale);
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<icu::Calendar> calendar(icu::Calendar::createInstance(chosen, status));
    const icu::RelativeDateTimeFormatter formatter(chosen, nullptr, UDAT_STYLE_SHORT, UDISPCTX_CAPITALIZATION_NONE,
                                                   status);
    if (U_FAILURE(status) != 0) {
        return {};
    }
    calendar->setTime(milliseconds(now), status);
    const auto [count, unit] = distance(*calendar, milliseconds(date), status);
    icu::UnicodeString words;
    formatter.formatNumeric(count, unit, words, status);
    std::string text;
    return U_SUCCESS(status) != 0 ? words.toUTF8String(text) : text;
}

} // namespace ambrel
