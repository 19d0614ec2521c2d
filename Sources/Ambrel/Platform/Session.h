#pragma once

#include "Core/Signal.h"

#include <optional>

namespace ambrel {

/// What the session says of itself at one moment. An absent fact could not be read.
struct SessionFacts {
    std::optional<bool> isScreenLocked;
    std::optional<bool> isOnConsole; ///< false while another user's session is in front
};

/// The user's session: its screen, its displays, its turn on the console and its end, and the machine's sleep. Events
/// are emitted on the main thread.
class Session {
public:
    virtual ~Session() = default;

    /// Starts to deliver events; the program calls it once. A service that is missing is named in the log, once.
    virtual void start() = 0;
    /// Absent when nothing can be read of the session.
    [[nodiscard]] virtual std::optional<SessionFacts> current() const = 0;

    Signal<> screenIsLocked;
    Signal<> screenIsUnlocked;
    Signal<> screensDidSleep;
    Signal<> screensDidWake;
    Signal<> sessionDidResignActive;
    Signal<> sessionDidBecomeActive;
    Signal<> sessionWillEnd;
    Signal<> sessionWillStay; ///< its end was called off
    Signal<> willSleep;
    Signal<> didWake;
};

} // namespace ambrel
