#include "Models/UserLocale.h"

#include <string_view>

namespace ambrel {

icu::Locale localeNamed(const std::string& name) {
    auto locale = name.empty() ? icu::Locale::getDefault() : icu::Locale(name.c_str());
    // No locale at all: its order is that of the bytes, capitals first.
    const bool isPosix = locale.getVariant() == std::string_view("POSIX");
    return isPosix ? icu::Locale::getUS() : locale;
}

} // namespace ambrel
