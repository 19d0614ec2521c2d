#include "Core/Lifetime.h"
#include "Core/Observable.h"
#include "Core/Signal.h"

#include <memory>
#include <optional>
#include <string>

#include <gtest/gtest.h>

namespace ambrel {
namespace {

TEST(Signal, ObserversMayComeAndGoDuringAnEmission) {
    Signal<int> signal;
    std::string calls;
    std::optional<Subscription> own;
    std::optional<Subscription> next;
    std::optional<Subscription> late;
    own = signal.subscribe([&](int) {
        calls += "own ";
        own.reset();
        next.reset();
        late = signal.subscribe([&](int value) { calls += "late" + std::to_string(value); });
        calls += "still ";
    });
    next = signal.subscribe([&](int) { calls += "never"; });
    signal.emit(1);
    EXPECT_EQ(calls, "own still ") << "who left isn't called, who came waits for the next emission";
    signal.emit(2);
    EXPECT_EQ(calls, "own still late2");
}

TEST(Signal, EitherEndMayGoFirst) {
    auto signal = std::make_unique<Signal<>>();
    int calls = 0;
    std::optional<Subscription> subscription = signal->subscribe([&] {
        ++calls;
        signal.reset();
    });
    const auto second = signal->subscribe([&] { ++calls; });
    signal->emit();
    EXPECT_EQ(calls, 2) << "an emission under way ends properly";
    subscription.reset();
}

TEST(Signal, AnAssignedOrMovedSubscriptionCancelsExactlyOnce) {
    Signal<> signal;
    int first = 0;
    int second = 0;
    auto kept = signal.subscribe([&] { ++first; });
    kept = signal.subscribe([&] { ++second; });
    const auto moved = std::move(kept);
    signal.emit();
    EXPECT_EQ(first, 0);
    EXPECT_EQ(second, 1);
}

TEST(Observable, AnnouncesBeforeAndTellsAfterEveryAssignment) {
    Observable<int> value(1);
    std::string told;
    const auto before = value.willChange.subscribe([&] { told += "was" + std::to_string(value.get()) + " "; });
    const auto after = value.subscribe([&](const int& now) { told += "is" + std::to_string(now) + " "; });
    value.set(2);
    value.set(2);
    EXPECT_EQ(told, "is1 was1 is2 was2 is2 ");
}

TEST(Lifetime, GuardedWorkDoesNothingOnceItsOwnerIsGone) {
    auto owner = std::make_unique<Lifetime>();
    int runs = 0;
    const auto work = owner->guard([&](int amount) {
        runs += amount;
        owner.reset();
        runs += amount;
    });
    work(1);
    work(1);
    EXPECT_EQ(runs, 2) << "work that ends its owner still runs to its end, and never again";
}

} // namespace
} // namespace ambrel
