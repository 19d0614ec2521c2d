#pragma once

#include "Platform/WindowList.h"

#include <limits>

namespace ambrel::simulated {

/// What goes wrong when one application's windows are read.
struct WindowFaults {
    static constexpr int untilCleared = std::numeric_limits<int>::max();

    /// The next `count` reads answer `why`.
    void failReads(Unreadable why, int count = untilCleared) {
        reason = why;
        failingReads = count;
    }
    void clear() { *this = {}; }

    Unreadable reason = Unreadable::failed;
    int failingReads = 0;
};

} // namespace ambrel::simulated
