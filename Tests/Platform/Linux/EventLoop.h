#pragma once

#include <functional>

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QTimer>

namespace ambrel {

/// Runs the event loop until `condition` holds; false if it doesn't within ten seconds.
[[nodiscard]] inline bool runUntil(const std::function<bool()>& condition) {
    const QDeadlineTimer limit(10'000);
    QTimer ticks;
    ticks.start(2);
    while (!condition()) {
        if (limit.hasExpired()) {
            return false;
        }
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    return true;
}

} // namespace ambrel
