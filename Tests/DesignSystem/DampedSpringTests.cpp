#include "DesignSystem/DampedSpring.h"

#include <cmath>
#include <numbers>
#include <vector>

#include <gtest/gtest.h>

namespace ambrel {

namespace {

struct Case {
    const char* name;
    double response;
    double dampingFraction;
    DampedSpring::State start;
    double target;
};

/// The equation of motion, step by step, for the next `seconds`.
DampedSpring::State integrate(const Case& spring, DampedSpring::State state, double seconds) {
    const double stiffness = std::pow(2 * std::numbers::pi / spring.response, 2);
    const double damping = 4 * std::numbers::pi * spring.dampingFraction / spring.response;
    constexpr double step = 1e-6;
    const auto steps = static_cast<int>(std::lround(seconds / step));
    for (int i = 0; i < steps; ++i) {
        state.velocity += step * (stiffness * (spring.target - state.position) - damping * state.velocity);
        state.position += step * state.velocity;
    }
    return state;
}

const std::vector<Case> cases{
    {"standard", 0.32, 0.86, {0, 0}, 100},
    {"fast, thrown the other way", 0.22, 0.9, {20, -800}, 0},
    {"almost no damping", 0.3, 0.05, {1, 0}, 0},
    {"critical", 0.25, 1, {0, 300}, 50},
    {"a hair from critical", 0.25, 1.00005, {0, 300}, 50},
    {"overdamped, thrown through the target", 0.2, 2.5, {0, 4000}, 10},
};

TEST(DampedSpringTests, FollowsTheEquationOfMotion) {
    for (const auto& spring : cases) {
        SCOPED_TRACE(spring.name);
        const DampedSpring closed(spring.response, spring.dampingFraction, spring.start, spring.target);
        auto state = spring.start;
        for (int tenth = 0; tenth <= 10; ++tenth) {
            const auto found = closed.at(tenth * 0.03);
            EXPECT_NEAR(found.position, state.position, 0.02);
            EXPECT_NEAR(found.velocity, state.velocity, 0.5);
            state = integrate(spring, state, 0.03);
        }
    }
}

TEST(DampedSpringTests, SettledIsForGood) {
    for (const auto& spring : cases) {
        SCOPED_TRACE(spring.name);
        const DampedSpring closed(spring.response, spring.dampingFraction, spring.start, spring.target);
        constexpr double frame = 1.0 / 60;
        int frames = 0;
        while (!closed.hasSettled(closed.at(frames * frame), 0.5)) {
            ASSERT_LT(++frames, 6000) << "never comes to rest";
        }
        EXPECT_GT(frames, 0) << "settled before it began";
        for (int later = frames; later < frames + 300; ++later) {
            ASSERT_LT(std::abs(closed.at(later * frame).position - spring.target), 0.5);
        }
    }
}

} // namespace

} // namespace ambrel
