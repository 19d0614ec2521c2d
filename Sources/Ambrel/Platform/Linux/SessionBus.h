#pragma once

#include "Core/Clock.h"

#include <memory>
#include <optional>

#include <QDBusConnection>

namespace ambrel {

/// The user's session bus. Connecting starts with the first question and happens beside the main thread, so that
/// a bus that doesn't answer holds nobody up; a bus is never started.
class SessionBus {
public:
    SessionBus();
    SessionBus(const SessionBus&) = delete;
    SessionBus& operator=(const SessionBus&) = delete;
    ~SessionBus();

    /// Absent if there is no bus, or it has not answered within `limit` from now.
    [[nodiscard]] std::optional<QDBusConnection> connection(Seconds limit = Seconds(0));

private:
    struct Attempt;
    std::shared_ptr<Attempt> attempt_;
};

} // namespace ambrel
