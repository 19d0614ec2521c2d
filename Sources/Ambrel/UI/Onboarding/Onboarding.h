#pragma once

#include "Platform/UserDefaults.h"

namespace ambrel {

/// Whether the first run has been through.
struct Onboarding {
    Onboarding() = delete;

    [[nodiscard]] static bool isCompleted(UserDefaults& defaults) {
        return defaults.productSuite()->boolForKey(completedKey);
    }
    /// For good.
    static void markCompleted(UserDefaults& defaults) { defaults.productSuite()->set(completedKey, true); }

private:
    static constexpr const char* completedKey = "onboardingCompleted";
};

} // namespace ambrel
