#include "DesignSystem/DampedSpring.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace ambrel {

namespace {

/// Nearer to 1 than this, the other two forms divide by almost nothing.
constexpr double criticalBand = 1e-4;

} // namespace

DampedSpring::DampedSpring(double response, double dampingFraction, State start, double target)
    : frequency_(response > 0 ? 2 * std::numbers::pi / response : 0), fraction_(std::max(dampingFraction, 0.0)),
      target_(target), offset_(start.position - target), velocity_(start.velocity) {}

DampedSpring::State DampedSpring::at(double seconds) const {
    if (frequency_ == 0) {
        return {target_, 0};
    }
    const double fromCritical = fraction_ - 1;
    const auto relative = std::abs(fromCritical) < criticalBand ? critical(seconds)
                          : fromCritical < 0                    ? underdamped(seconds)
                                                                : overdamped(seconds);
    return {target_ + relative.position, relative.velocity};
}

/// Energy only falls: all of it turned into distance bounds what is still to come, whatever the damping.
bool DampedSpring::hasSettled(State state, double epsilon) const {
    return frequency_ == 0 || std::hypot(state.position - target_, state.velocity / frequency_) < epsilon;
}

DampedSpring::State DampedSpring::underdamped(double seconds) const {
    const double decay = fraction_ * frequency_;
    const double swing = frequency_ * std::sqrt(1 - fraction_ * fraction_);
    const double sinePart = (velocity_ + decay * offset_) / swing;
    const double cosine = std::cos(swing * seconds);
    const double sine = std::sin(swing * seconds);
    const double position = offset_ * cosine + sinePart * sine;
    const double turning = swing * (sinePart * cosine - offset_ * sine);
    const double envelope = std::exp(-decay * seconds);
    return {envelope * position, envelope * (turning - decay * position)};
}

DampedSpring::State DampedSpring::critical(double seconds) const {
    const double slope = velocity_ + frequency_ * offset_;
    const double position = offset_ + slope * seconds;
    const double envelope = std::exp(-frequency_ * seconds);
    return {envelope * position, envelope * (slope - frequency_ * position)};
}

DampedSpring::State DampedSpring::overdamped(double seconds) const {
    const double spread = std::sqrt(fraction_ * fraction_ - 1);
    const double slow = frequency_ * (spread - fraction_);
    const double fast = -frequency_ * (spread + fraction_);
    const double fastPart = (velocity_ - slow * offset_) / (fast - slow);
    const double slowTerm = (offset_ - fastPart) * std::exp(slow * seconds);
    const double fastTerm = fastPart * std::exp(fast * seconds);
    return {slowTerm + fastTerm, slow * slowTerm + fast * fastTerm};
}

} // namespace ambrel
