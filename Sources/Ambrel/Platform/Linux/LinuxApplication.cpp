#include "Platform/Linux/LinuxApplication.h"

#include "Platform/Linux/Process.h"
#include "Platform/Linux/TrayItems.h"

#include <algorithm>
#include <chrono>
#include <utility>

#include <signal.h>

namespace ambrel {

namespace {

/// A user may take this long over what a closing window asks.
constexpr Seconds terminationLimit{60};
/// An application without windows may be on its way out, saving what it has to; a signal would cut that short.
constexpr Seconds ownEndTime{2};
constexpr Seconds hidingLimit{2};

void cancel(WorkItemRef& item) {
    if (item) {
        std::exchange(item, nullptr)->cancel();
    }
}

} // namespace

LinuxApplication::LinuxApplication(ApplicationServices services, std::shared_ptr<Process> process)
    : services_(services), process_(std::move(process)) {}

ProcessId LinuxApplication::processIdentifier() const {
    return process_->pid();
}

ActivationPolicy LinuxApplication::activationPolicy() const {
    const bool regular = launched_ && identity_.entry && identity_.shownInMenus;
    return regular ? ActivationPolicy::regular : ActivationPolicy::accessory;
}

bool LinuxApplication::isTerminated() const {
    return process_->hasExited();
}

std::optional<Date> LinuxApplication::launchDate() const {
    return process_->startDate();
}

std::vector<DesktopWindow> LinuxApplication::windows() const {
    return services_.windows.windows(process_->pid());
}

std::vector<DesktopWindow> LinuxApplication::windowsOnDesktop() const {
    auto present = windows();
    std::erase_if(present, [](const DesktopWindow& window) { return !window.onDesktop; });
    return present;
}

void LinuxApplication::terminate(std::function<bool()> lastLook, std::function<void(QuitOutcome)> done) {
    if (isTerminated()) {
        return done(QuitOutcome::gone);
    }
    // What isn't seen can't be asked to close, and may hold unsaved work.
    if (!services_.windows.isReadable()) {
        return done(QuitOutcome::nothingSent);
    }
    const auto open = windowsOnDesktop();
    if (open.empty()) {
        askProcess(std::move(lastLook), std::move(done));
    } else if (!lastLook()) {
        done(QuitOutcome::dropped);
    } else {
        askWindows(open);
        done(QuitOutcome::sent);
    }
}

void LinuxApplication::askWindows(const std::vector<DesktopWindow>& open) {
    forgetTermination();
    for (const auto& window : open) {
        if (window.certain) {
            services_.windows.close(window.id);
        }
    }
    terminationLapse_ = services_.queue.asyncAfter(terminationLimit, lifetime_.guard([this] { forgetTermination(); }));
}

/// A window may come while the application is still being asked how it can be asked.
void LinuxApplication::askProcess(std::function<bool()> lastLook, std::function<void(QuitOutcome)> done) {
    forgetTermination();
    const auto stillHolds = [weak = weak_from_this(), lastLook = std::move(lastLook)] {
        const auto self = weak.lock();
        return self && self->services_.windows.isReadable() && self->windowsOnDesktop().empty() && lastLook();
    };
    services_.quitRequest.quit(process_, quitAction_, {.lastLook = stillHolds, .done = std::move(done)});
}

/// What was decided when the windows were asked is now said to the process.
void LinuxApplication::followUp() {
    askProcess([] { return true; }, [](QuitOutcome) {});
}

void LinuxApplication::forgetTermination() {
    cancel(terminationLapse_);
    cancel(followUp_);
}

bool LinuxApplication::forceTerminate() {
    return process_->signal(SIGKILL);
}

bool LinuxApplication::hide() {
    if (isTerminated()) {
        return false;
    }
    const auto open = windowsOnDesktop();
    if (open.empty()) {
        return false;
    }
    visibility_.beginHiding();
    for (const auto& window : open) {
        if (window.certain && !window.minimized) {
            services_.windows.minimize(window.id);
        }
    }
    services_.queue.async(lifetime_.guard([this] { judgeVisibility(); }));
    cancel(hidingLapse_);
    hidingLapse_ = services_.queue.asyncAfter(hidingLimit, lifetime_.guard([this] { visibility_.endHiding(); }));
    return true;
}

void LinuxApplication::windowChanged(const WindowChange& change) {
    visibility_.note(change.event, change.window, std::chrono::steady_clock::now().time_since_epoch());
    if (change.event == WindowEvent::appeared) {
        forgetTermination();
    } else if (terminationLapse_ && windowsOnDesktop().empty()) {
        cancel(followUp_);
        followUp_ = services_.queue.asyncAfter(ownEndTime, lifetime_.guard([this] { followUp(); }));
    }
    judgeVisibility();
}

void LinuxApplication::trayChanged() {
    if (services_.tray.owns(process_->pid()) != ownsTrayItem_) {
        judgeVisibility();
    }
}

void LinuxApplication::judgeVisibility() {
    const auto now = windows();
    ownsTrayItem_ = services_.tray.owns(process_->pid());
    cancel(settling_);
    if (visibility_.isAway(now, ownsTrayItem_)) {
        settling_ =
            services_.queue.asyncAfter(ApplicationVisibility::withdrawalTime, lifetime_.guard([this] { settled(); }));
    }
    announce(visibility_.changed(now, ownsTrayItem_));
}

void LinuxApplication::settled() {
    if (services_.windows.isReadable()) {
        announce(visibility_.settled(windows(), ownsTrayItem_));
    }
}

void LinuxApplication::announce(Transition transition) {
    if (transition != Transition::none) {
        visibilityDidChange.emit(transition);
    }
}

} // namespace ambrel
