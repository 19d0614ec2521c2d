#pragma once

#include "Core/Logger.h"
#include "Core/Signal.h"

#include <functional>
#include <string>
#include <vector>

namespace ambrel {

class Environment;
class Session;

/// Knows the conditions under which window counts can't be trusted, and says when they can be trusted again. One set
/// flag is enough to distrust. Main thread only.
class SystemState {
public:
    [[nodiscard]] static SystemState& shared();

    /// Reads the two environment variables that force a condition; both must be exactly "1".
    SystemState(const Environment& environment, Session& session);

    /// Watches the session from now on, beginning with what it says at present. Idempotent.
    void start();

    [[nodiscard]] bool isTrustworthy() const;
    /// A word for log lines. Session-related words contain "session", and no others do.
    [[nodiscard]] std::string untrustworthyReason() const;

    /// Called on the edge from untrusted to trusted.
    std::function<void()> onResumeTrusted;

private:
    /// The words of a condition for its log line.
    struct Words {
        const char* subject;
        const char* whenTrue;
        const char* whenFalse;
    };

    void observe();
    void seed();
    void setLocked(bool locked);
    void setScreensAsleep(bool asleep);
    void setSessionInactive(bool inactive);
    void setSessionEnding(bool ending);
    void change(bool& flag, bool value, const Words& words);

    Session& session_;
    Logger log_{"systemstate"};
    bool screenLocked_ = false;
    bool screensAsleep_ = false;
    bool sessionInactive_ = false;
    bool sessionEnding_ = false;
    bool started_ = false;
    const bool forcedLocked_;
    const bool forcedSessionInactive_;
    std::vector<Subscription> observers_;
};

} // namespace ambrel
