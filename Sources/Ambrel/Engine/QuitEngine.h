#pragma once

#include "AmbrelKit/QuitPolicy.h"
#include "Core/Lifetime.h"
#include "Core/Logger.h"
#include "Core/MainQueue.h"
#include "Core/Observable.h"
#include "Engine/ActivityWatch.h"
#include "Engine/AmbrelDebug.h"
#include "Engine/IdleMonitor.h"
#include "Engine/TerminationAudit.h"
#include "Platform/RunningApplication.h"

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

namespace ambrel {

class AppMonitor;
class AppRulesStore;
class AppSettings;
class Clock;
class DevGuard;
class Platform;
class QuitNotifier;
class QuitRequests;
class SleepWakeHandler;
class SystemState;
class WindowOracle;

/// The program's spine. Keeps one monitor per regular application whose rule asks for it, and takes an application
/// whose last window has closed through a delay and two validations to the request to terminate. Main thread only.
class QuitEngine {
public:
    struct Neighbours {
        AppSettings& settings;
        AppRulesStore& rules;
        SystemState& systemState;
        DevGuard& guard;
        const WindowOracle& oracle;
        TerminationAudit& audit;
        QuitNotifier& notifier;
        QuitRequests& requests;
        const Clock& clock; ///< dates what is compared across long spans
    };

    [[nodiscard]] static QuitEngine& shared();

    QuitEngine(Platform& platform, Neighbours neighbours);
    QuitEngine(const QuitEngine&) = delete;
    QuitEngine& operator=(const QuitEngine&) = delete;
    ~QuitEngine();

    /// Idempotent.
    void start();
    /// Brings the monitors in line with the running applications and their rules. No effect before `start`.
    void reconcile(const std::string& trigger);
    /// Starts every monitor afresh, as counts that span a sleep or a lock can't be compared.
    void recreateAll();
    /// Replaces a monitor that has failed, more slowly each time; gives up after five failures in a row.
    void recreate(ProcessId pid, const std::string& bundleID);

    /// How many applications are monitored.
    Observable<int> monitoredCount{0};

private:
    /// Seconds until an application that came, or came back, is watched.
    static constexpr double launchDelay = 0.5;

    using AppMonitorRef = std::shared_ptr<AppMonitor>;
    using PendingWorks = std::unordered_map<ProcessId, WorkItemRef>;
    struct RecreateStreak {
        int count;
        Date last;
    };
    struct Target {
        RunningApplicationRef app;
        AppMonitorRef monitor;
    };

    // Monitors and reconcile: QuitEngine.cpp, QuitEngine+Monitors.cpp
    void observeWorkspace();
    void observeTrust();
    void observeWindowManager();
    void observeChoices();
    void applyPause(bool isPaused);
    void rulesWillChange();
    void addMonitor(const RunningApplicationRef& app, double delay);
    [[nodiscard]] bool wantsMonitor(const RunningApplicationRef& app) const;
    void createMonitor(ProcessId pid, const std::string& bundleID);
    void removeMonitor(ProcessId pid);
    [[nodiscard]] int removeUnwantedMonitors();
    void addMissingMonitors(double delay = 0);
    [[nodiscard]] RunningApplicationRef livingApplication(ProcessId pid) const;
    void appLaunched(const RunningApplicationRef& app);
    void appTerminated(const RunningApplicationRef& app);
    void cancelAllPendingQuits();
    [[nodiscard]] int lengthenStreak(ProcessId pid);

    // The last-window path: QuitEngine+LastWindow.cpp, QuitEngine+Validation.cpp
    void evaluateQuit(AppMonitor& monitor);
    void reevaluate(ProcessId pid);
    [[nodiscard]] QuitPolicy::CountChangeState countChangeState(const AppMonitor& monitor) const;
    void act(const QuitPolicy::CountChangeAction& action, const AppMonitor& monitor);
    void ignore(const QuitPolicy::IgnoreReason& reason, const AppMonitor& monitor);
    void scheduleQuit(ProcessId pid, const std::string& bundleID);
    void cancelQuit(ProcessId pid);
    void performQuit(ProcessId pid, const std::string& bundleID);
    void confirmAndTerminate(ProcessId pid, const std::string& bundleID);
    void terminate(const Target& target);
    /// Whether a look right before the request still finds what was decided on.
    [[nodiscard]] bool isStillClosed(const Target& target) const;
    /// Holds `work` as the one timer of this process.
    void submit(ProcessId pid, double delay, std::function<void(QuitEngine&)> work);
    /// Acts on a refusal: says why, and prepares the next look where one is due.
    [[nodiscard]] std::optional<Target> validateQuit(ProcessId pid, const std::string& bundleID,
                                                     const std::string& stage);
    [[nodiscard]] QuitPolicy::FireTimeState fireTimeState(ProcessId pid, const std::string& bundleID,
                                                          const Target& target) const;
    [[nodiscard]] QuitPolicy::ValidationResult judge(ProcessId pid, const std::string& bundleID, const Target& target);
    /// What is done about a refusal that need not be the last word.
    void respond(const QuitPolicy::AbortReason& reason, const Target& target);
    void logAbort(const QuitPolicy::AbortReason& reason, ProcessId pid, const std::string& bundleID,
                  const std::string& stage);
    /// Waits for the second check, and looks at what the application does meanwhile.
    void armSecondCheck(const Target& target, double delay);
    void awaitWork(WorkPolicy::Sign sign, const Target& target);
    void hold(const Target& target);
    void forgetActivity(ProcessId pid);
    void retryIfCGVeto(const QuitPolicy::AbortReason& reason, ProcessId pid, const std::string& bundleID);
    void recordUntrusted(ProcessId pid, const std::string& bundleID, const std::string& reason);
    [[nodiscard]] std::optional<std::string> untrustedReason() const;
    [[nodiscard]] bool recentlyMinimized(const AppMonitor& monitor) const;

    // The hide path: QuitEngine+Hide.cpp
    void appHidden(const RunningApplicationRef& app);
    [[nodiscard]] bool quitsWhenHidden(const std::string& bundleID) const;
    [[nodiscard]] bool isLaunchArtifact(const RunningApplication& app) const;
    void scheduleHideQuit(ProcessId pid, const std::string& bundleID);
    void performHideQuit(ProcessId pid, const std::string& bundleID);
    void terminateHidden(const RunningApplicationRef& app, const std::string& bundleID);

    Platform& platform_;
    Neighbours neighbours_;
    const AmbrelDebug debug_;
    const Logger log_{"engine"};
    const ProcessId selfPID_;
    std::map<ProcessId, AppMonitorRef> monitors_;
    PendingWorks pendingQuits_;
    PendingWorks pendingHideQuits_;
    std::unordered_map<ProcessId, int> cgVetoRetries_;
    ActivityWatch activity_;
    /// Seconds until an application is asked about again that was kept as it was occupied.
    std::unordered_map<ProcessId, double> holds_;
    std::unique_ptr<SleepWakeHandler> sleepWake_;
    IdleMonitor idleMonitor_;
    std::vector<Subscription> workspaceObservers_;
    Subscription readableObserver_;
    Subscription pauseObserver_;
    Subscription rulesObserver_;
    WorkItemRef rulesDebounce_;
    bool started_ = false;
    int era_ = 0; ///< counts how often everything began anew
    std::unordered_map<ProcessId, RecreateStreak> recreateStreaks_;
    Lifetime lifetime_;
};

} // namespace ambrel
