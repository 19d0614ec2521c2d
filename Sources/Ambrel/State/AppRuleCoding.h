#pragma once

#include "State/AppRule.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace ambrel {

/// What `rules.json` holds.
struct Persisted {
    std::vector<AppRule> rules;
    AppRule defaultRule;

    bool operator==(const Persisted&) const = default;
};

/// One compact JSON object. Text that isn't UTF-8 is mended with U+FFFD.
[[nodiscard]] std::string encode(const Persisted& persisted);

/// Absent unless `text` is a JSON object with both members, and every rule has a bundle identifier. Any other member
/// that is missing or unusable takes its default, and unknown ones are ignored.
[[nodiscard]] std::optional<Persisted> decodePersisted(std::string_view text);

} // namespace ambrel
