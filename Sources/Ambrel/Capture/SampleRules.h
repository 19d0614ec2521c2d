#pragma once

#include "State/AppRule.h"

#include <vector>

namespace ambrel {

/// Rules that a user may have made: ordinary ones, and some that ask for more.
[[nodiscard]] std::vector<AppRule> sampleRules();

/// The application, among those of the sample rules, that hides instead of closing.
constexpr const char* sampleThatHides = "com.hnc.Discord";

} // namespace ambrel
