#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace ambrel {

/// Strictly: no overlong forms, no surrogates, nothing above U+10FFFF.
[[nodiscard]] bool isValidUtf8(std::string_view text);

/// The text with U+FFFD in the place of every byte that belongs to no character.
[[nodiscard]] std::string replacingInvalidUtf8(std::string_view text);

/// The text ends within a character that may go on in what follows.
[[nodiscard]] bool endsInsideCharacter(std::string_view text);

} // namespace ambrel
