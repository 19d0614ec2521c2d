#include "Core/ParseNumber.h"

#include <clocale>
#include <cstdlib>
#include <cstring>

#include <locale.h>

namespace ambrel {

std::optional<double> parseNumber(const std::string& text) {
    if (text.empty() || std::strchr(" \t\n\v\f\r", text.front()) != nullptr) {
        return std::nullopt;
    }
    static const locale_t cLocale = newlocale(LC_ALL_MASK, "C", nullptr);
    char* end = nullptr;
    const double number = strtod_l(text.c_str(), &end, cLocale);
    if (end != text.c_str() + text.size()) {
        return std::nullopt;
    }
    return number;
}

} // namespace ambrel
