#pragma once

#include <string>

namespace ambrel {

/// What people read, in their language; `text` itself where nobody translates it. Never for logs and files.
[[nodiscard]] std::string localized(const char* text);

/// Marks a text for translators, who find it under `context`, which is always "ambrel".
[[nodiscard]] constexpr const char* translatable([[maybe_unused]] const char* context, const char* text) {
    return text;
}

/// Who translates from now on.
void setTranslation(std::string (*translation)(const char* text));

} // namespace ambrel
