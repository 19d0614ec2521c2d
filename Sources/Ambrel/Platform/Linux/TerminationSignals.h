#pragma once

#include <functional>

namespace ambrel {

/// Turns SIGTERM and SIGINT into a call from the event loop.
struct TerminationSignals {
    TerminationSignals() = delete;

    /// Calls `work` for the first signal of each kind; the next one has its default effect, so that a process that
    /// hangs can still be ended.
    static void install(std::function<void()> work);
    /// Gives both signals their default effect again.
    static void remove();
};

} // namespace ambrel
