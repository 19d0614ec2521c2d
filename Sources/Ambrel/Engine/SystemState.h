#pragma once

#include "Core/Logger.h"

#include <functional>
#include <string>

namespace ambrel {

class Environment;

/// Knows the conditions under which window counts can't be trusted. One set flag is enough.
class SystemState {
public:
    [[nodiscard]] static SystemState& shared();

    /// Reads the two environment variables that force a condition; both must be exactly "1".
    explicit SystemState(const Environment& environment);

    /// Idempotent.
    void start();

    [[nodiscard]] bool isTrustworthy() const;
    /// A word for log lines. Session-related words contain "session", and no others do.
    [[nodiscard]] std::string untrustworthyReason() const;

    /// Called on the edge from untrusted to trusted.
    std::function<void()> onResumeTrusted;

private:
    Logger log_{"systemstate"};
    bool started_ = false;
    const bool forcedLocked_;
    const bool forcedSessionInactive_;
};

} // namespace ambrel
