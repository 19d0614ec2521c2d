#pragma once

#include "Core/Lifetime.h"
#include "Core/Logger.h"
#include "Core/Signal.h"
#include "Engine/ActivityWatch.h"
#include "Engine/TerminationAudit.h"
#include "Platform/RunningApplication.h"

#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace ambrel {

class AppRule;
class AppRulesStore;
class AppSettings;
class DevGuard;
class Platform;
class QuitRequests;

/// Hides or quits applications that have been idle for longer than their own rule allows. Idle is the time since an
/// application last became active or stopped being active, and nothing else. Main thread only.
class IdleMonitor {
public:
    struct Neighbours {
        const AppSettings& settings;
        const AppRulesStore& rules;
        DevGuard& guard;
        TerminationAudit& audit;
        QuitRequests& requests;
    };

    IdleMonitor(Platform& platform, Neighbours neighbours);

    /// To be called once.
    void start();
    /// Gives every regular application a fresh clock.
    void resetTimestamps();

private:
    void observeWorkspace();
    void scheduleEvaluation();
    void evaluate();
    void evaluate(const RunningApplicationRef& app, Seconds now);
    void hide(RunningApplication& app, const std::string& bundleID, Seconds idle);
    void quitUnlessOccupied(const RunningApplicationRef& app, const std::string& bundleID, Seconds idle);
    void keep(const RunningApplication& app, const std::string& bundleID, Occupation occupation);
    void quit(const RunningApplicationRef& app, const std::string& bundleID, Seconds idle);
    [[nodiscard]] bool hasWindowOnDesktop(ProcessId pid) const;
    [[nodiscard]] double thresholdSeconds(const AppRule& rule) const;
    void touch(const RunningApplicationRef& app);
    void appTerminated(const RunningApplicationRef& app);

    Platform& platform_;
    Neighbours neighbours_;
    Logger log_{"idle"};
    std::unordered_map<ProcessId, Seconds> lastActive_; ///< by the monotonic clock
    // Since they were last in use.
    std::unordered_set<ProcessId> askedToHide_;
    std::unordered_set<ProcessId> kept_; ///< though idle, as they are occupied
    ActivityWatch activity_;
    const Seconds interval_;
    std::vector<Subscription> observers_;
    Lifetime lifetime_;
};

} // namespace ambrel
