#pragma once

#include "Core/Clock.h"

#include <string>

namespace ambrel {

/// How long `date` lies before or after `now`, in the largest unit of which there is a whole one: "2 hr. ago". In
/// the user's language for an empty locale; empty where ICU can't tell.
[[nodiscard]] std::string relativeTime(Date date, Date now, const std::string& locale = {});

} // namespace ambrel
