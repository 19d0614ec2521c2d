#pragma once

#include "Core/Clock.h"

#include <functional>
#include <memory>

namespace ambrel {

/// One delayed piece of work. Dropping the handle does not cancel it.
class WorkItem {
public:
    virtual ~WorkItem() = default;
    /// Takes the work back; without effect once it has run.
    virtual void cancel() = 0;
};

using WorkItemRef = std::shared_ptr<WorkItem>;

/// The serial queue that all logic runs on.
class MainQueue {
public:
    virtual ~MainQueue() = default;

    /// Runs `work` in a later turn of the queue, in submission order. May be called on any thread.
    virtual void async(std::function<void()> work) = 0;

    /// Runs `work` once, `delay` from now; a negative delay counts as zero, an infinite or undefined one
    /// as never. Works due at the same time run in submission order. Main thread only.
    virtual WorkItemRef asyncAfter(Seconds delay, std::function<void()> work) = 0;
};

} // namespace ambrel
