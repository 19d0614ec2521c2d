#pragma once

#include "Core/Clock.h"

#include <optional>
#include <string>
#include <string_view>

namespace ambrel {

/// Whole seconds in UTC, as in "2026-11-16T17:26:42Z"; "?" for a date outside of the years 0 to 9999.
[[nodiscard]] std::string formatIsoDate(Date date);

/// Takes the same form, also with an offset "+01:00" or "+0100" in the place of the "Z". Absent for anything else,
/// and for days and times that there are not.
[[nodiscard]] std::optional<Date> parseIsoDate(std::string_view text);

} // namespace ambrel
