#include "Engine/AppMonitor.h"

#include "Platform/Platform.h"
#include "Platform/Workspace.h"
#include "State/AppSettings.h"

#include <array>
#include <utility>

namespace ambrel {

namespace {

constexpr std::array<double, 3> attachRetryDelays{0.5, 1.0, 2.0};

} // namespace

std::shared_ptr<AppMonitor> AppMonitor::make(Platform& platform, const AppSettings& settings, AmbrelDebug debug,
                                             ProcessId pid, std::string bundleID) {
    return std::shared_ptr<AppMonitor>(new AppMonitor(platform, settings, debug, pid, std::move(bundleID)));
}

AppMonitor::AppMonitor(Platform& platform, const AppSettings& settings, AmbrelDebug debug, ProcessId pid,
                       std::string bundleID)
    : platform_(platform), settings_(settings), debug_(debug), pid_(pid), bundleID_(std::move(bundleID)) {}

void AppMonitor::attachWithRetry(int attempt) {
    if (platform_.windowList().isReadable()) {
        // The subscription dies with this monitor, so its callback can't outlive it.
        events_ = platform_.windowList().observe(pid_, [this](WindowEvent event) { hear(event); });
        takeInitialCount();
    } else if (attempt >= static_cast<int>(attachRetryDelays.size())) {
        log_.error("attach gave up after retries for {}; requesting recreate", bundleID_);
        reportFailure();
    } else {
        retryAttach(attempt);
    }
}

void AppMonitor::retryAttach(int attempt) {
    const double delay = attachRetryDelays.at(static_cast<std::size_t>(attempt));
    log_.notice("retry attach ({}) in {:f}s for {}", attempt + 1, delay, bundleID_);
    platform_.mainQueue().asyncAfter(Seconds(delay), [weak = weak_from_this(), attempt] {
        if (const auto self = weak.lock()) {
            self->attachWithRetry(attempt + 1);
        }
    });
}

void AppMonitor::takeInitialCount() {
    const auto self = shared_from_this(); // a failed read may make the owner let go of this monitor
    last_ = currentCensus().value_or(WindowCensus{});
    wasHidden_ = isHidden();
    noteAboveThreshold(last_.count);
    log_.notice("attached {} pid {} windows={} aboveThreshold={}", bundleID_, pid_, last_.count,
                hasObservedAboveThreshold_);
}

void AppMonitor::hear(WindowEvent event) {
    lastReason_ = word(event);
    if (event == WindowEvent::minimized || event == WindowEvent::hidden) {
        lastMinimizeAt_ = platform_.wallClock().now();
    }
    hasVanished_ = hasVanished_ || event == WindowEvent::vanished;
    if (std::exchange(recountPending_, true)) {
        return;
    }
    platform_.mainQueue().async([weak = weak_from_this()] {
        if (const auto self = weak.lock()) {
            self->recount();
        }
    });
}

void AppMonitor::recount() {
    recountPending_ = false;
    const auto census = currentCensus();
    if (!census) {
        log_.debug("{} recount {} — AX read failed; keeping windows={}", bundleID_, lastReason_, last_.count);
        return;
    }
    noteAboveThreshold(census->count);
    const bool hidingChanged = noteHiding(census->count);
    const auto previous = std::exchange(last_, *census);
    if (previous.count != last_.count) {
        lastDropWasJump_ = isJump(previous.count, last_.count);
    }
    logChange(previous);
    if ((previous != last_ || hidingChanged) && onCountChange) {
        onCountChange(*this);
    }
}

/// True if the application has hidden, or the window by which it was hidden has been destroyed. Without a destroyed
/// window nothing was closed: an icon may have left the tray with the tray itself.
bool AppMonitor::noteHiding(std::ptrdiff_t count) {
    const bool before = std::exchange(wasHidden_, isHidden());
    const bool closed = std::exchange(hasVanished_, false) && before && !wasHidden_ && count == 0;
    if (closed) {
        lastMinimizeAt_.reset();
    }
    return closed || (!before && wasHidden_);
}

void AppMonitor::logChange(const WindowCensus& previous) const {
    if (previous.count != last_.count) {
        log_.notice("{} windows {}->{} ({}) aboveThreshold={}", bundleID_, previous.count, last_.count, lastReason_,
                    hasObservedAboveThreshold_);
    } else {
        log_.debug("{} recount {} windows={} (no change)", bundleID_, lastReason_, last_.count);
    }
    if (previous.openDialogs != last_.openDialogs) {
        log_.notice("{} dialogs {}->{} ({})", bundleID_, previous.openDialogs, last_.openDialogs, lastReason_);
    }
}

void AppMonitor::noteAboveThreshold(std::ptrdiff_t count) {
    if (count >= (settings_.quitOnlyWhenOneWindowLeft.get() ? 1 : 2)) {
        hasObservedAboveThreshold_ = true;
    }
}

bool AppMonitor::isJump(std::ptrdiff_t previous, std::ptrdiff_t count) const {
    return settings_.quitOnlyWhenOneWindowLeft.get() ? count <= 0 && previous >= 2 : count <= 1 && previous >= 3;
}

bool AppMonitor::isHidden() const {
    const auto app = platform_.workspace().runningApplication(pid_);
    return app && app->isHidden();
}

std::optional<std::ptrdiff_t> AppMonitor::currentWindowCount() {
    const auto census = currentCensus();
    return census ? std::optional(census->count) : std::nullopt;
}

std::ptrdiff_t AppMonitor::currentDialogs() const {
    const auto reading = platform_.windowList().reading(pid_);
    const auto* const windows = std::get_if<std::vector<ApplicationWindow>>(&reading);
    return windows != nullptr ? takeCensus(*windows).openDialogs : 0;
}

std::optional<WindowCensus> AppMonitor::currentCensus() {
    const auto reading = platform_.windowList().reading(pid_);
    if (const auto* const reason = std::get_if<Unreadable>(&reading)) {
        if (*reason == Unreadable::noWindowManager) {
            log_.error("read windows -> {} for {}; requesting recreate", word(*reason), bundleID_);
            reportFailure();
        } else if (*reason != Unreadable::processGone) {
            log_.error("read windows -> {} for {}", word(*reason), bundleID_);
        }
        return std::nullopt;
    }
    const auto& windows = std::get<std::vector<ApplicationWindow>>(reading);
    const auto census = takeCensus(windows);
    if (debug_.windows) {
        logRawWindows(windows, census.count);
    }
    return census;
}

void AppMonitor::reportFailure() {
    if (!std::exchange(axFailed_, true) && onAXFailure) {
        onAXFailure(*this);
    }
}

void AppMonitor::logRawWindows(const std::vector<ApplicationWindow>& windows, std::ptrdiff_t count) const {
    log_.notice("{} raw window list: {} elements -> {} standard", bundleID_, windows.size(), count);
    for (std::size_t index = 0; index < windows.size(); ++index) {
        const auto& window = windows[index];
        log_.notice("  window[{}] kind={} minimized={} onDesktop={} certain={}", index, word(window.kind),
                    window.minimized, window.onDesktop, window.certain);
    }
    log_.notice("{} appHidden={}", bundleID_,
                platform_.workspace().runningApplication(pid_) ? isHidden() ? "true" : "false" : "?");
}

} // namespace ambrel
