#include "Core/Clock.h"

#include <cmath>

namespace ambrel {

std::int64_t wholeSeconds(Date date) {
    constexpr double bound = 9223372036854775808.0; // 2^63
    const double seconds = date.time_since_epoch().count();
    return std::abs(seconds) < bound ? static_cast<std::int64_t>(seconds) : 0;
}

Date SystemClock::now() const {
    return std::chrono::time_point_cast<Seconds>(std::chrono::system_clock::now());
}

Seconds SystemMonotonicClock::now() const {
    // On Linux the steady clock is the one that does not count sleep.
    return std::chrono::steady_clock::now().time_since_epoch();
}

} // namespace ambrel
