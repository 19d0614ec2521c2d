#pragma once

#include <functional>

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QTimer>

namespace ambrel {

/// Runs the event loop until `condition` holds; false if it doesn't in time. It is asked again now and then, as not
/// everything that it may look at comes with an event.
[[nodiscard]] inline bool runUntil(const std::function<bool()>& condition, int milliseconds = 10'000) {
    const QDeadlineTimer limit(milliseconds);
    QTimer ticks;
    ticks.start(3);
    while (!condition()) {
        if (limit.hasExpired()) {
            return false;
        }
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    return true;
}

} // namespace ambrel
