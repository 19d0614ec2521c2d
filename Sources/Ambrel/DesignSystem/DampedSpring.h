#pragma once

namespace ambrel {

/// A mass of 1 on a damped spring that pulls it to `target`, in closed form. Times are seconds. A response of 0 or less
/// is a spring without give: it is at its target at once.
class DampedSpring {
public:
    struct State {
        double position;
        double velocity; ///< per second
    };

    /// `response` is the period of the same spring without damping; `dampingFraction` is 1 where it stops overshooting.
    DampedSpring(double response, double dampingFraction, State start, double target);

    [[nodiscard]] State at(double seconds) const;
    /// Whether from `state` on the mass never gets further than `epsilon` from the target.
    [[nodiscard]] bool hasSettled(State state, double epsilon) const;

private:
    [[nodiscard]] State underdamped(double seconds) const;
    [[nodiscard]] State critical(double seconds) const;
    [[nodiscard]] State overdamped(double seconds) const;

    double frequency_; ///< radians per second, 0 for a spring without give
    double fraction_;
    double target_;
    double offset_; ///< of the start from the target
    double velocity_;
};

} // namespace ambrel
