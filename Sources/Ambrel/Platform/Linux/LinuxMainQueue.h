#pragma once

#include "Core/MainQueue.h"

#include <memory>

namespace ambrel {

class DeadlineTimer;
class TurnReceiver;

/// The main queue on Qt's event loop. Made, and destroyed, on the thread of the application object.
class LinuxMainQueue final : public MainQueue {
public:
    LinuxMainQueue();
    ~LinuxMainQueue() override;

    void async(std::function<void()> work) override;
    /// Precise to the scheduling of the process: one kernel timer, set to the nearest deadline, and none while
    /// nothing waits.
    WorkItemRef asyncAfter(Seconds delay, std::function<void()> work) override;

private:
    std::unique_ptr<TurnReceiver> turns_;
    std::shared_ptr<DeadlineTimer> timer_;
};

} // namespace ambrel
