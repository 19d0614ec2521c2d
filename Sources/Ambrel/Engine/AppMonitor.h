#pragma once

#include "Core/Logger.h"
#include "Core/MainQueue.h"
#include "Engine/AmbrelDebug.h"
#include "Platform/Accessibility.h"

#include <array>
#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace ambrel {

class AppSettings;
class Platform;

/// Watches one application and keeps its window count. Reports that the count changed, or that the link to the
/// application has broken; decides nothing. Main thread only.
class AppMonitor : public std::enable_shared_from_this<AppMonitor> {
public:
    using Callback = std::function<void(AppMonitor&)>;

    /// The window events that a monitor subscribes to.
    static constexpr std::array<std::string_view, 7> notifications{
        "AXWindowCreated",        "AXUIElementDestroyed", "AXFocusedWindowChanged", "AXWindowMiniaturized",
        "AXWindowDeminiaturized", "AXApplicationHidden",  "AXApplicationShown"};

    /// Null when the application can't be observed.
    [[nodiscard]] static std::shared_ptr<AppMonitor> make(Platform& platform, const AppSettings& settings,
                                                          AmbrelDebug debug, ProcessId pid, std::string bundleID);
    AppMonitor(const AppMonitor&) = delete;
    AppMonitor& operator=(const AppMonitor&) = delete;
    ~AppMonitor();

    /// Subscribes and takes the first count, in up to four passes. The owner calls it once, with 0.
    void attachWithRetry(int attempt);

    /// Reads the count now, without touching `lastCount`. Absent when the read failed.
    [[nodiscard]] std::optional<std::ptrdiff_t> currentWindowCount();

    [[nodiscard]] ProcessId pid() const { return pid_; }
    [[nodiscard]] const std::string& bundleID() const { return bundleID_; }
    /// The last count that was read successfully.
    [[nodiscard]] std::ptrdiff_t lastCount() const { return lastCount_; }
    [[nodiscard]] bool hasObservedAboveThreshold() const { return hasObservedAboveThreshold_; }
    /// The latest change fell to or below the threshold from at least two above it.
    [[nodiscard]] bool lastDropWasJump() const { return lastDropWasJump_; }
    /// The latest minimise or application-hide, by the wall clock.
    [[nodiscard]] std::optional<Date> lastMinimizeAt() const { return lastMinimizeAt_; }

    /// Called at most once in a monitor's life; the owner then replaces it.
    Callback onAXFailure;
    Callback onCountChange;

private:
    AppMonitor(Platform& platform, const AppSettings& settings, AmbrelDebug debug, ProcessId pid, std::string bundleID);

    [[nodiscard]] bool createObserver();
    [[nodiscard]] bool addNotifications();
    void retryAttach(int attempt);
    void takeInitialCount();
    void scheduleRecount(const std::string& reason);
    void recount();
    void noteAboveThreshold(std::ptrdiff_t count);
    [[nodiscard]] bool isJump(std::ptrdiff_t previous, std::ptrdiff_t count) const;
    void reportFailure();
    void logRawWindows(const std::vector<WindowElement>& windows, std::ptrdiff_t count) const;

    Platform& platform_;
    const AppSettings& settings_;
    const AmbrelDebug debug_;
    const Logger log_{"monitor"};
    const ProcessId pid_;
    const std::string bundleID_;
    std::unique_ptr<ApplicationElement> appElement_;
    std::unique_ptr<AccessibilityObserver> observer_;
    std::ptrdiff_t lastCount_ = 0;
    bool hasObservedAboveThreshold_ = false;
    bool lastDropWasJump_ = false;
    bool axFailed_ = false;
    bool recountPending_ = false;
    std::string lastReason_ = "init";
    std::optional<Date> lastMinimizeAt_;
};

/// How many of these elements are windows in the sense of the last-window rule: every standard window, and every
/// minimised one.
[[nodiscard]] std::ptrdiff_t countWindows(const std::vector<WindowElement>& elements);

} // namespace ambrel
