#pragma once

#include "Core/Clock.h"

#include <functional>

namespace ambrel {

/// Work of little urgency, off the main thread.
class BackgroundQueue {
public:
    virtual ~BackgroundQueue() = default;

    /// Asks `holds` at once and then every `interval`, at most `times` times, until it answers true; then calls
    /// `finished` with its last answer. Both run off the main thread.
    virtual void poll(int times, Seconds interval, std::function<bool()> holds, std::function<void(bool)> finished) = 0;
};

} // namespace ambrel
