#pragma once

#include "Core/Logger.h"

#include <functional>

namespace ambrel {

/// The window of the first run.
class OnboardingController {
public:
    [[nodiscard]] static OnboardingController& shared();

    /// Calls `onFinish` once onboarding has ended.
    void present(const std::function<void()>& onFinish);

private:
    Logger log_{"ui"};
};

} // namespace ambrel
