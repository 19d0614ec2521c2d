#include "UI/StatusBar/FrameAnimation.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace ambrel {

namespace {

constexpr double framesPerSecond = 60;

double easeInOut(double share) {
    return share * share * (3 - 2 * share);
}

} // namespace

void FrameAnimation::run(Seconds duration, Step step, std::function<void()> completion) {
    stop();
    step_ = std::move(step);
    completion_ = std::move(completion);
    frame_ = 0;
    frames_ = std::max(1, static_cast<int>(std::lround(duration.count() * framesPerSecond)));
    interval_ = duration / frames_;
    awaitFrame();
}

void FrameAnimation::stop() {
    if (next_) {
        next_->cancel();
        next_.reset();
    }
}

void FrameAnimation::awaitFrame() {
    next_ = queue_.asyncAfter(interval_, lifetime_.guard([this] { drawFrame(); }));
}

void FrameAnimation::drawFrame() {
    next_.reset();
    ++frame_;
    const bool isLast = frame_ >= frames_;
    // Copies: either may start the next change, in this very object.
    const auto step = step_;
    const auto completion = completion_;
    if (!isLast) {
        awaitFrame();
    }
    step(isLast ? 1 : easeInOut(static_cast<double>(frame_) / frames_));
    if (isLast && completion) {
        completion();
    }
}

} // namespace ambrel
