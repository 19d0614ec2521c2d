#pragma once

#include <algorithm>
#include <string_view>

namespace ambrel {

[[nodiscard]] constexpr char lowerAscii(char character) {
    return character >= 'A' && character <= 'Z' ? static_cast<char>(character - 'A' + 'a') : character;
}

/// Orders texts without regard to the case of ASCII letters, in every locale alike.
[[nodiscard]] constexpr bool lessWithoutCase(std::string_view left, std::string_view right) {
    return std::lexicographical_compare(left.begin(), left.end(), right.begin(), right.end(),
                                        [](char one, char other) { return lowerAscii(one) < lowerAscii(other); });
}

[[nodiscard]] constexpr bool equalWithoutCase(std::string_view left, std::string_view right) {
    return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                      [](char one, char other) { return lowerAscii(one) == lowerAscii(other); });
}

} // namespace ambrel
