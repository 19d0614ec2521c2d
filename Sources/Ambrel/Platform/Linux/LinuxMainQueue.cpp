#include "Platform/Linux/LinuxMainQueue.h"

#include "Platform/Linux/DeadlineTimer.h"

#include <cmath>
#include <utility>

#include <QObject>

namespace ambrel {

class TurnReceiver final : public QObject {};

namespace {

class TimedWork final : public WorkItem {
public:
    TimedWork(std::weak_ptr<DeadlineTimer> timer, DeadlineTimer::Key key) : timer_(std::move(timer)), key_(key) {}
    void cancel() override {
        if (const auto timer = timer_.lock()) {
            timer->remove(key_);
        }
    }

private:
    std::weak_ptr<DeadlineTimer> timer_;
    DeadlineTimer::Key key_;
};

class NeverWork final : public WorkItem {
public:
    void cancel() override {}
};

} // namespace

LinuxMainQueue::LinuxMainQueue()
    : turns_(std::make_unique<TurnReceiver>()), timer_(std::make_shared<DeadlineTimer>()) {}

LinuxMainQueue::~LinuxMainQueue() = default;

void LinuxMainQueue::async(std::function<void()> work) {
    QMetaObject::invokeMethod(turns_.get(), std::move(work), Qt::QueuedConnection);
}

WorkItemRef LinuxMainQueue::asyncAfter(Seconds delay, std::function<void()> work) {
    if (!std::isfinite(delay.count())) {
        return std::make_shared<NeverWork>();
    }
    return std::make_shared<TimedWork>(timer_, timer_->add(delay, std::move(work)));
}

} // namespace ambrel
