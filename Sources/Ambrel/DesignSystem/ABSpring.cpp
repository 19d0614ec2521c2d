#include "DesignSystem/ABSpring.h"

#include "DesignSystem/ABAppearance.h"
#include "DesignSystem/ABMotion.h"
#include "DesignSystem/ABRenderConfig.h"

#include <utility>

#include <QAbstractAnimation>

namespace ambrel {

/// Runs until it is stopped, and is started afresh, in the middle of its run, by each new target.
class ABSpring::Ticks : public QAbstractAnimation {
public:
    explicit Ticks(ABSpring& spring) : spring_(spring) {}

    [[nodiscard]] int duration() const override { return -1; }
    void startAnew() {
        origin_ = currentTime();
        if (state() != Running) {
            origin_ = 0;
            start();
        }
    }

protected:
    void updateCurrentTime(int now) override {
        if (state() == Running) {
            spring_.tick((now - origin_) / 1000.0);
        }
    }

private:
    ABSpring& spring_;
    int origin_ = 0;
};

ABSpring::ABSpring(QObject* parent) : QObject(parent), ticks_(std::make_unique<Ticks>(*this)) {
    QObject::connect(ticks_.get(), &QAbstractAnimation::stateChanged, this, &ABSpring::movingChanged);
}

ABSpring::~ABSpring() {
    ticks_->disconnect(this);
}

bool ABSpring::moving() const {
    return ticks_->state() == QAbstractAnimation::Running;
}

void ABSpring::componentComplete() {
    isComplete_ = true;
    jump(target_);
}

void ABSpring::setTarget(double target) {
    if (std::exchange(target_, target) == target) {
        return;
    }
    Q_EMIT targetChanged();
    const bool reduced = ABAppearance::shared().reducedMotion();
    if (!isComplete_) {
        return;
    }
    // A picture may be drawn before time has passed.
    if (ABRenderConfig::drawsPictures() || (reduced && !fades_)) {
        rest();
        return;
    }
    start_ = state_;
    fading_ = reduced;
    ticks_->startAnew();
}

void ABSpring::jump(double value) {
    if (std::exchange(target_, value) != value) {
        Q_EMIT targetChanged();
    }
    rest();
}

void ABSpring::rest() {
    ticks_->stop();
    setState({target_, 0});
}

void ABSpring::tick(double seconds) {
    const auto state = stateAfter(seconds);
    const bool isThere =
        fading_ ? state.position == target_
                : DampedSpring(motion_.response, motion_.dampingFraction, start_, target_).hasSettled(state, epsilon_);
    isThere ? rest() : setState(state);
}

DampedSpring::State ABSpring::stateAfter(double seconds) const {
    if (!fading_) {
        return DampedSpring(motion_.response, motion_.dampingFraction, start_, target_).at(seconds);
    }
    const double share = seconds * 1000 / ABMotion::reducedFadeDuration;
    return {share < 1 ? start_.position + share * (target_ - start_.position) : target_, 0};
}

void ABSpring::setState(DampedSpring::State state) {
    if (std::exchange(state_, state).position != state.position) {
        Q_EMIT valueChanged();
    }
}

} // namespace ambrel
