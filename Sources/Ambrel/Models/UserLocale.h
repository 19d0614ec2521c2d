#pragma once

#include <string>

#include <unicode/locid.h>

namespace ambrel {

/// The locale of this name; the user's own for an empty one.
[[nodiscard]] icu::Locale localeNamed(const std::string& name);

} // namespace ambrel
