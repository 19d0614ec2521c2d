#pragma once

#include "Platform/Accessibility.h"

#include <limits>
#include <map>

namespace ambrel::simulated {

/// What goes wrong when one application is asked through `Accessibility`.
struct AccessibilityFaults {
    static constexpr int untilCleared = std::numeric_limits<int>::max();

    /// The next `count` reads of the windows answer `code`.
    void failReads(AXError code, int count = untilCleared) {
        readCode = code;
        failingReads = count;
    }
    void clear() { *this = {}; }

    AXError readCode = AXError::success;
    int failingReads = 0;
    bool windowsMissing = false;                      ///< reads succeed, but without a value
    AXError observerCreation = AXError::success;      ///< what creating an observer answers
    std::map<std::string, AXError> addNotification{}; ///< what adding these notifications answers
};

} // namespace ambrel::simulated
