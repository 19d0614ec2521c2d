#pragma once

#include "Core/Clock.h"
#include "Core/Signal.h"

#include <memory>
#include <optional>

#include <QDBusConnection>
#include <QObject>

namespace ambrel {

class AsyncBus;

/// The user's session bus for what is said through Qt. It is asked, with the first question here, whether it answers
/// at all before Qt connects, which would wait for it; a bus is never started.
class SessionBus {
public:
    SessionBus();
    SessionBus(const SessionBus&) = delete;
    SessionBus& operator=(const SessionBus&) = delete;
    ~SessionBus();

    /// Absent if there is no bus, or it has not answered within `limit` from now.
    [[nodiscard]] std::optional<QDBusConnection> connection(Seconds limit = Seconds(0));

    /// The bus has answered; emitted once.
    Signal<> opened;

private:
    void ask();
    void open();

    bool asked_ = false;
    bool answered_ = false;
    std::unique_ptr<AsyncBus> probe_; ///< until it is answered
    std::optional<QDBusConnection> connection_;
    QObject later_;
};

} // namespace ambrel
