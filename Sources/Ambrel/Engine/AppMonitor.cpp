#include "Engine/AppMonitor.h"

#include "Platform/Platform.h"
#include "Platform/Workspace.h"
#include "State/AppSettings.h"

#include <algorithm>
#include <cstdint>

namespace ambrel {

namespace {

constexpr Seconds messagingTimeout{1.5};
constexpr std::array<double, 3> attachRetryDelays{0.5, 1.0, 2.0};

void configureGlobalAXTimeout(Accessibility& accessibility) {
    static const bool configured = (accessibility.setMessagingTimeout(messagingTimeout), true);
    static_cast<void>(configured);
}

bool isWindow(const WindowElement& element) {
    return element.role == "AXWindow" && (element.minimized == true || element.subrole == "AXStandardWindow");
}

std::string_view word(std::optional<bool> value) {
    return !value ? "?" : *value ? "true" : "false";
}

} // namespace

std::ptrdiff_t countWindows(const std::vector<WindowElement>& elements) {
    return std::count_if(elements.begin(), elements.end(), isWindow);
}

std::shared_ptr<AppMonitor> AppMonitor::make(Platform& platform, const AppSettings& settings, AmbrelDebug debug,
                                             ProcessId pid, std::string bundleID) {
    configureGlobalAXTimeout(platform.accessibility());
    std::shared_ptr<AppMonitor> monitor(new AppMonitor(platform, settings, debug, pid, std::move(bundleID)));
    return monitor->createObserver() ? monitor : nullptr;
}

AppMonitor::AppMonitor(Platform& platform, const AppSettings& settings, AmbrelDebug debug, ProcessId pid,
                       std::string bundleID)
    : platform_(platform), settings_(settings), debug_(debug), pid_(pid), bundleID_(std::move(bundleID)),
      appElement_(platform.accessibility().createApplication(pid)) {}

AppMonitor::~AppMonitor() {
    if (observer_) {
        for (const auto name : notifications) {
            observer_->removeNotification(name);
        }
    }
}

bool AppMonitor::createObserver() {
    // The observer dies with this monitor, so its callback can't outlive it.
    auto created =
        platform_.accessibility().createObserver(pid_, [this](const std::string& name) { scheduleRecount(name); });
    if (created.code != AXError::success || !created.observer) {
        log_.error("AXObserverCreate failed ({}) for {}", static_cast<std::int32_t>(created.code), bundleID_);
        return false;
    }
    observer_ = std::move(created.observer);
    return true;
}

void AppMonitor::attachWithRetry(int attempt) {
    if (!observer_) {
        return;
    }
    if (addNotifications()) {
        takeInitialCount();
    } else if (attempt >= static_cast<int>(attachRetryDelays.size())) {
        log_.error("attach gave up after retries for {}; requesting recreate", bundleID_);
        reportFailure();
    } else {
        retryAttach(attempt);
    }
}

bool AppMonitor::addNotifications() {
    bool clean = true;
    for (const auto name : notifications) {
        const auto code = observer_->addNotification(name);
        if (code != AXError::success && code != AXError::notificationAlreadyRegistered) {
            log_.error("addNotification {} -> {} for {}", name, static_cast<std::int32_t>(code), bundleID_);
            clean = false;
        }
    }
    return clean;
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
    lastCount_ = currentWindowCount().value_or(0);
    noteAboveThreshold(lastCount_);
    log_.notice("attached {} pid {} windows={} aboveThreshold={}", bundleID_, pid_, lastCount_,
                hasObservedAboveThreshold_);
}

void AppMonitor::scheduleRecount(const std::string& reason) {
    lastReason_ = reason;
    if (reason == "AXWindowMiniaturized" || reason == "AXApplicationHidden") {
        lastMinimizeAt_ = platform_.wallClock().now();
    }
    if (recountPending_) {
        return;
    }
    recountPending_ = true;
    platform_.mainQueue().async([weak = weak_from_this()] {
        if (const auto self = weak.lock()) {
            self->recount();
        }
    });
}

void AppMonitor::recount() {
    recountPending_ = false;
    const auto previous = lastCount_;
    const auto count = currentWindowCount();
    if (!count) {
        log_.debug("{} recount {} — AX read failed; keeping windows={}", bundleID_, lastReason_, previous);
        return;
    }
    noteAboveThreshold(*count);
    if (*count == previous) {
        log_.debug("{} recount {} windows={} (no change)", bundleID_, lastReason_, previous);
        return;
    }
    lastDropWasJump_ = isJump(previous, *count);
    lastCount_ = *count;
    log_.notice("{} windows {}->{} ({}) aboveThreshold={}", bundleID_, previous, lastCount_, lastReason_,
                hasObservedAboveThreshold_);
    if (onCountChange) {
        onCountChange(*this);
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

std::optional<std::ptrdiff_t> AppMonitor::currentWindowCount() {
    const auto reading = appElement_->copyWindows();
    switch (reading.code) {
    case AXError::success:
        break;
    case AXError::noValue:
        return std::nullopt;
    case AXError::cannotComplete:
        log_.error("copy windows -> cannotComplete (-25204) for {}; requesting recreate", bundleID_);
        reportFailure();
        return std::nullopt;
    default:
        log_.error("copy windows -> {} for {}", static_cast<std::int32_t>(reading.code), bundleID_);
        return std::nullopt;
    }
    if (!reading.windows) {
        return 0;
    }
    const auto count = countWindows(*reading.windows);
    if (debug_.windows) {
        logRawWindows(*reading.windows, count);
    }
    return count;
}

void AppMonitor::reportFailure() {
    if (axFailed_) {
        return;
    }
    axFailed_ = true;
    if (onAXFailure) {
        onAXFailure(*this);
    }
}

void AppMonitor::logRawWindows(const std::vector<WindowElement>& windows, std::ptrdiff_t count) const {
    log_.notice("{} raw window list: {} elements -> {} standard", bundleID_, windows.size(), count);
    for (std::size_t index = 0; index < windows.size(); ++index) {
        const auto& window = windows[index];
        log_.notice("  window[{}] role={} subrole={} minimized={}", index, window.role.value_or("?"),
                    window.subrole.value_or("?"), word(window.minimized));
    }
    const auto app = platform_.workspace().runningApplication(pid_);
    log_.notice("{} appHidden={}", bundleID_, word(app ? std::optional(app->isHidden()) : std::nullopt));
}

} // namespace ambrel
