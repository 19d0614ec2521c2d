#pragma once

#include <optional>
#include <string>

namespace ambrel {

/// Converts a whole text as `strtod` does in the C locale. Absent for an empty text, leading white space or
/// trailing characters. "inf" and "nan" convert.
[[nodiscard]] std::optional<double> parseNumber(const std::string& text);

} // namespace ambrel
