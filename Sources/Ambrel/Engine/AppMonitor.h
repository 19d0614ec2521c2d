#pragma once

#include "Core/Logger.h"
#include "Core/MainQueue.h"
#include "Engine/AmbrelDebug.h"
#include "Engine/WindowCensus.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace ambrel {

class AppSettings;
class Platform;

/// Watches one application and keeps its window count. Reports that its windows changed, or that they can't be read;
/// decides nothing. Main thread only.
class AppMonitor : public std::enable_shared_from_this<AppMonitor> {
public:
    using Callback = std::function<void(AppMonitor&)>;

    [[nodiscard]] static std::shared_ptr<AppMonitor> make(Platform& platform, const AppSettings& settings,
                                                          AmbrelDebug debug, ProcessId pid, std::string bundleID);
    AppMonitor(const AppMonitor&) = delete;
    AppMonitor& operator=(const AppMonitor&) = delete;

    /// Subscribes and takes the first count, in up to four passes. The owner calls it once, with 0.
    void attachWithRetry(int attempt);

    /// Reads the count now, without touching `lastCount`. Absent when the read failed.
    [[nodiscard]] std::optional<std::ptrdiff_t> currentWindowCount();
    /// Reads the open dialogs now; 0 also when the read failed, which the count then tells.
    [[nodiscard]] std::ptrdiff_t currentDialogs() const;

    [[nodiscard]] ProcessId pid() const { return pid_; }
    [[nodiscard]] const std::string& bundleID() const { return bundleID_; }
    /// The last count that was read successfully, and the open dialogs beside it.
    [[nodiscard]] std::ptrdiff_t lastCount() const { return last_.count; }
    [[nodiscard]] std::ptrdiff_t openDialogs() const { return last_.openDialogs; }
    [[nodiscard]] bool hasObservedAboveThreshold() const { return hasObservedAboveThreshold_; }
    /// The latest change fell to or below the threshold from at least two above it.
    [[nodiscard]] bool lastDropWasJump() const { return lastDropWasJump_; }
    /// The latest minimise or application-hide, by the wall clock; absent once what was hidden is closed.
    [[nodiscard]] std::optional<Date> lastMinimizeAt() const { return lastMinimizeAt_; }

    /// Called at most once in a monitor's life; the owner then replaces it.
    Callback onAXFailure;
    /// The count, the open dialogs or what hides the application has changed.
    Callback onCountChange;

private:
    AppMonitor(Platform& platform, const AppSettings& settings, AmbrelDebug debug, ProcessId pid, std::string bundleID);

    void retryAttach(int attempt);
    void takeInitialCount();
    void hear(WindowEvent event);
    void recount();
    [[nodiscard]] bool noteHiding(std::ptrdiff_t count);
    void logChange(const WindowCensus& previous) const;
    [[nodiscard]] std::optional<WindowCensus> currentCensus();
    void noteAboveThreshold(std::ptrdiff_t count);
    [[nodiscard]] bool isJump(std::ptrdiff_t previous, std::ptrdiff_t count) const;
    [[nodiscard]] bool isHidden() const;
    void reportFailure();
    void logRawWindows(const std::vector<ApplicationWindow>& windows, std::ptrdiff_t count) const;

    Platform& platform_;
    const AppSettings& settings_;
    const AmbrelDebug debug_;
    const Logger log_{"monitor"};
    const ProcessId pid_;
    const std::string bundleID_;
    Subscription events_;
    WindowCensus last_;
    bool hasObservedAboveThreshold_ = false;
    bool lastDropWasJump_ = false;
    bool axFailed_ = false;
    bool recountPending_ = false;
    const char* lastReason_ = "init";
    std::optional<Date> lastMinimizeAt_;
    bool wasHidden_ = false;   ///< at the last recount
    bool hasVanished_ = false; ///< a window, since the last recount
};

} // namespace ambrel
