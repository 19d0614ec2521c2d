#pragma once

#include "Platform/UserDefaults.h"

namespace ambrel {

/// Whether the first run has been through.
struct Onboarding {
    Onboarding() = delete;

    [[nodiscard]] static bool isCompleted(UserDefaults& defaults) {
        return defaults.productSuite()->boolForKey("onboardingCompleted");
    }
};

} // namespace ambrel
