#pragma once

#include <cstdint>

namespace ambrel {

/// Stands in for DPMS, which no X server without a screen has: this process takes the level that is set here for the
/// server's answer. Everything else of the conversation is real.
struct PlayedPowerLevel {
    static inline std::uint16_t level = 0;
};

} // namespace ambrel
