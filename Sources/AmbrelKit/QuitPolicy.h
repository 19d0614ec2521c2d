#pragma once

#include "AmbrelKit/WorkPolicy.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <variant>

namespace ambrel {

/// Every decision of the last-window path: facts go in as records, a decision with its reason comes out. Reads no
/// clock, no setting and no window; what must be read lazily comes in as a callable.
struct QuitPolicy {
    QuitPolicy() = delete;

    /// The facts at the moment a window count changed.
    struct CountChangeState {
        std::ptrdiff_t count;
        std::ptrdiff_t threshold; ///< the count at or below which the application counts as closed
        bool hasObservedAboveThreshold;
        bool isPaused;
        bool appIsHidden;
        bool recentlyMinimized; ///< a minimise or application-hide happened less than 2 seconds ago
        std::optional<std::string> untrustedReason = std::nullopt; ///< absent when the window count can be trusted
        std::ptrdiff_t openDialogs = 0;                            ///< on whatever workspace, of whatever size
        bool requestInFlight = false; ///< it has been asked to quit a short time ago, by whatever path
    };

    /// The facts when a scheduled quit is about to fire.
    struct FireTimeState {
        bool isPaused;
        bool isSelfApp;
        bool isExcluded;
        bool hasMonitor;
        bool appIsAlive;
        bool ruleAllowsQuit;
        std::optional<std::string> untrustedReason;
        bool appIsHidden;
        bool recentlyMinimized;
        bool hasObservedAboveThreshold;
        std::ptrdiff_t threshold;
        std::ptrdiff_t openDialogs = 0;
        bool requestInFlight = false;
        bool isOccupied = false; ///< for its user, as one that plays; or that could not be learned in time
    };

    // A case without a payload is an empty record, so that cases compare by kind and payload alike.
#define AMBREL_CASE(Name)                                                                                              \
    struct Name {                                                                                                      \
        bool operator==(const Name&) const = default;                                                                  \
    }
    struct UntrustedSystemState {
        std::string reason;
        bool operator==(const UntrustedSystemState&) const = default;
    };
    struct WindowsReopened {
        std::ptrdiff_t count;
        bool operator==(const WindowsReopened&) const = default;
    };
    struct CGVeto {
        std::ptrdiff_t cgWindows;
        bool operator==(const CGVeto&) const = default;
    };
    struct DialogOpen {
        std::ptrdiff_t dialogs;
        bool operator==(const DialogOpen&) const = default;
    };
    struct Working {
        WorkPolicy::Sign sign;
        bool operator==(const Working&) const = default;
    };
    AMBREL_CASE(Paused);
    AMBREL_CASE(SelfApp);
    AMBREL_CASE(Excluded);
    AMBREL_CASE(NoMonitor);
    AMBREL_CASE(AppTerminated);
    AMBREL_CASE(DevGuardDenied);
    AMBREL_CASE(RuleDisabled);
    AMBREL_CASE(Hidden);
    AMBREL_CASE(RecentlyMinimized);
    AMBREL_CASE(NeverObservedAboveThreshold);
    AMBREL_CASE(RequestInFlight);
    AMBREL_CASE(Occupied);
    AMBREL_CASE(AXReadFailed);
    AMBREL_CASE(CancelPending);
    AMBREL_CASE(Schedule);
    AMBREL_CASE(Proceed);
    AMBREL_CASE(GiveUp);
#undef AMBREL_CASE

    using IgnoreReason = std::variant<UntrustedSystemState, NeverObservedAboveThreshold, Paused, Hidden,
                                      RecentlyMinimized, RequestInFlight, DialogOpen>;
    struct Ignore {
        IgnoreReason reason;
        bool operator==(const Ignore&) const = default;
    };
    using CountChangeAction = std::variant<Ignore, CancelPending, Schedule>;

    using AbortReason =
        std::variant<UntrustedSystemState, WindowsReopened, CGVeto, Paused, SelfApp, Excluded, NoMonitor, AppTerminated,
                     DevGuardDenied, RuleDisabled, Hidden, RecentlyMinimized, NeverObservedAboveThreshold, AXReadFailed,
                     RequestInFlight, DialogOpen, Occupied, Working>;
    struct Abort {
        AbortReason reason;
        bool operator==(const Abort&) const = default;
    };
    using ValidationResult = std::variant<Abort, Proceed>;

    struct Retry {
        int attempt;
        double delay; ///< seconds
        bool operator==(const Retry&) const = default;
    };
    using CGVetoRetryAction = std::variant<Retry, GiveUp>;

    static constexpr int cgVetoRetryLimit = 4;
    static constexpr double cgVetoRetryDelay = 2.0; ///< seconds

    using ReadWork = std::function<std::optional<WorkPolicy::Sign>()>;
    using ReadCount = std::function<std::optional<std::ptrdiff_t>()>;

    [[nodiscard]] static std::ptrdiff_t threshold(bool quitOnlyWhenOneWindowLeft);
    [[nodiscard]] static CountChangeAction onCountChange(const CountChangeState& state);
    /// Calls each callable at most once, and only when no earlier check has ended the evaluation. An absent window
    /// count stops the quit; an absent window-server count doesn't, as that count is only ever a veto.
    [[nodiscard]] static ValidationResult validateFire(
        const FireTimeState& state, const std::function<bool()>& devGuardAllows, const ReadCount& readWindowCount,
        const ReadCount& readCGWindowCount, const ReadWork& readWork = [] { return std::nullopt; });
    /// Seconds between the two validations.
    [[nodiscard]] static double reconfirmDelay(bool lastDropWasJump);
    [[nodiscard]] static CGVetoRetryAction nextCGVetoRetry(int priorAttempts);
};

} // namespace ambrel
