#pragma once

#include "Core/Lifetime.h"
#include "Core/MainQueue.h"

#include <functional>

namespace ambrel {

/// A change that is drawn in steps, about 60 a second; between two changes nothing waits anywhere.
class FrameAnimation {
public:
    /// Gets how far the change is, eased at both ends: above 0, and at the last step 1.
    using Step = std::function<void(double progress)>;

    /// `queue` must outlive this object.
    explicit FrameAnimation(MainQueue& queue) : queue_(queue) {}
    FrameAnimation(const FrameAnimation&) = delete;
    FrameAnimation& operator=(const FrameAnimation&) = delete;
    ~FrameAnimation() { stop(); }

    /// Takes over from a change that is under way, whose `completion` is then never called.
    void run(Seconds duration, Step step, std::function<void()> completion = {});
    void stop();

private:
    void awaitFrame();
    void drawFrame();

    MainQueue& queue_;
    Seconds interval_{0};
    int frame_ = 0;
    int frames_ = 0;
    Step step_;
    std::function<void()> completion_;
    WorkItemRef next_;
    Lifetime lifetime_;
};

} // namespace ambrel
