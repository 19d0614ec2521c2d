#pragma once

#include "Core/Clock.h"

#include <memory>

namespace ambrel {

class Environment;

/// The clock for everything that is written down or compared across long spans.
struct AppClock {
    AppClock() = delete;

    /// The process-wide clock, chosen once from its platform.
    [[nodiscard]] static const Clock& shared();

    /// A fake clock if `AMBREL_FAKE_NOW` holds seconds since 1970, else one that shows what `wall` shows.
    /// `wall` must outlive the answer.
    [[nodiscard]] static std::unique_ptr<Clock> choose(const Environment& environment, const Clock& wall);
};

} // namespace ambrel
