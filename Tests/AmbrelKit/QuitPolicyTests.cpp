#include "AmbrelKit/QuitPolicy.h"

#include <gtest/gtest.h>

namespace ambrel {
namespace {

using P = QuitPolicy;

P::FireTimeState ready() {
    return {false, false, false, true, true, true, std::nullopt, false, false, true, 0};
}

TEST(OnCountChange, FirstTestThatHoldsIsTheAnswer) {
    auto all = P::CountChangeState{2, 1, false, true, true, true, "locked"};
    EXPECT_EQ(P::onCountChange(all), P::CountChangeAction(P::CancelPending{}));
    all.count = 1;
    EXPECT_EQ(P::onCountChange(all), P::CountChangeAction(P::Ignore{P::NeverObservedAboveThreshold{}}));
    all.hasObservedAboveThreshold = true;
    EXPECT_EQ(P::onCountChange(all), P::CountChangeAction(P::Ignore{P::Paused{}}));
    all.isPaused = false;
    EXPECT_EQ(P::onCountChange(all), P::CountChangeAction(P::Ignore{P::Hidden{}}));
    all.appIsHidden = false;
    EXPECT_EQ(P::onCountChange(all), P::CountChangeAction(P::Ignore{P::RecentlyMinimized{}}));
    all.recentlyMinimized = false;
    EXPECT_EQ(P::onCountChange(all), P::CountChangeAction(P::Ignore{P::UntrustedSystemState{"locked"}}));
    all.untrustedReason.reset();
    EXPECT_EQ(P::onCountChange(all), P::CountChangeAction(P::Schedule{}));
}

/// Runs validateFire and notes which callables it asked, in order.
struct Fire {
    std::string asked;
    P::ValidationResult result;

    Fire(const P::FireTimeState& state, bool guard, std::optional<std::ptrdiff_t> ax,
         std::optional<std::ptrdiff_t> cg = std::nullopt)
        : result(P::validateFire(
              state, [&] { return asked += "g", guard; }, [&] { return asked += "a", ax; },
              [&] { return asked += "c", cg; })) {}
};

template <typename Reason> P::ValidationResult aborted(Reason reason) {
    return P::Abort{std::move(reason)};
}

TEST(ValidateFire, StopsAtTheFirstReasonWithoutAskingFurther) {
    struct Case {
        void (*spoil)(P::FireTimeState&);
        P::ValidationResult result;
        const char* asked;
    };
    const Case cases[] = {
        {[](auto& s) { s.isPaused = true; }, aborted(P::Paused{}), ""},
        {[](auto& s) { s.isSelfApp = true; }, aborted(P::SelfApp{}), ""},
        {[](auto& s) { s.isExcluded = true; }, aborted(P::Excluded{}), ""},
        {[](auto& s) { s.hasMonitor = false; }, aborted(P::NoMonitor{}), ""},
        {[](auto& s) { s.appIsAlive = false; }, aborted(P::AppTerminated{}), ""},
        {[](auto& s) { s.ruleAllowsQuit = false; }, aborted(P::RuleDisabled{}), "g"},
        {[](auto& s) { s.untrustedReason = "why"; }, aborted(P::UntrustedSystemState{"why"}), "g"},
        {[](auto& s) { s.appIsHidden = true; }, aborted(P::Hidden{}), "g"},
        {[](auto& s) { s.recentlyMinimized = true; }, aborted(P::RecentlyMinimized{}), "g"},
        {[](auto& s) { s.hasObservedAboveThreshold = false; }, aborted(P::NeverObservedAboveThreshold{}), "g"},
    };
    // From last to first, so that each case also meets every later obstacle.
    auto state = ready();
    for (auto it = std::rbegin(cases); it != std::rend(cases); ++it) {
        it->spoil(state);
        const Fire fire(state, true, 5, 5);
        EXPECT_EQ(fire.result, it->result);
        EXPECT_EQ(fire.asked, it->asked);
    }
    EXPECT_EQ(Fire(ready(), false, 0).result, aborted(P::DevGuardDenied{}));
}

TEST(ValidateFire, AWindowReadMustSucceedAndTheWindowServerOnlyVetoes) {
    EXPECT_EQ(Fire(ready(), true, std::nullopt).result, aborted(P::AXReadFailed{}));
    EXPECT_EQ(Fire(ready(), true, 1).result, aborted(P::WindowsReopened{1}));
    EXPECT_EQ(Fire(ready(), true, 0, 3).result, aborted(P::CGVeto{3}));
    EXPECT_EQ(Fire(ready(), true, 0, std::nullopt).result, P::ValidationResult(P::Proceed{}));
    EXPECT_EQ(Fire(ready(), true, 0, 0).result, P::ValidationResult(P::Proceed{}));
    EXPECT_EQ(Fire(ready(), true, 0, 0).asked, "gac");

    auto one = ready();
    one.threshold = 1;
    EXPECT_EQ(Fire(one, true, 2).result, aborted(P::WindowsReopened{2}));
    const Fire left(one, true, 1, 7);
    EXPECT_EQ(left.result, P::ValidationResult(P::Proceed{}));
    EXPECT_EQ(left.asked, "ga") << "with a window left, the window server has no say";
}

} // namespace
} // namespace ambrel
