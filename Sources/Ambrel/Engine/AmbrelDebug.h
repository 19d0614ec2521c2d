#pragma once

#include "Platform/Environment.h"

namespace ambrel {

/// Switches for tracing, read once by whoever holds them.
struct AmbrelDebug {
    /// Each count and each evaluation is logged with all its facts.
    bool windows = false;

    [[nodiscard]] static AmbrelDebug read(const Environment& environment) {
        return {.windows = environment.isSet("AMBREL_DEBUG_WINDOWS")};
    }
};

} // namespace ambrel
