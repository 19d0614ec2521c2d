#include "Platform/Linux/LinuxApplication.h"

#include "Platform/Linux/Process.h"
#include "Platform/Linux/TrayItems.h"

#include <algorithm>
#include <utility>

#include <signal.h>

namespace ambrel {

namespace {

/// A user may take this long over what a closing window asks.
constexpr Seconds terminationLimit{60};
/// An application without windows may be on its way out, saving what it has to; a signal would cut that short.
constexpr Seconds ownEndTime{2};
constexpr Seconds hidingLimit{2};
/// A window that is being closed is often taken off the desktop first.
constexpr Seconds withdrawalTime{0.25};

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

std::vector<DesktopWindow> LinuxApplication::managedWindows() const {
    auto managed = windows();
    std::erase_if(managed, [](const DesktopWindow& window) { return !window.managed; });
    return managed;
}

bool LinuxApplication::terminate() {
    // What isn't seen can't be asked to close, and may hold unsaved work.
    if (isTerminated() || !services_.windows.isReadable()) {
        return false;
    }
    const auto open = managedWindows();
    forgetTermination();
    if (open.empty()) {
        askProcess();
        return true;
    }
    for (const auto& window : open) {
        if (window.certain) {
            services_.windows.close(window.id);
        }
    }
    terminationLapse_ = services_.queue.asyncAfter(terminationLimit, lifetime_.guard([this] { forgetTermination(); }));
    return true;
}

void LinuxApplication::askProcess() {
    services_.quitRequest.quit(process_, quitAction_);
}

void LinuxApplication::followUp() {
    forgetTermination();
    if (services_.windows.isReadable() && managedWindows().empty()) {
        askProcess();
    }
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
    visibility_.beginHiding();
    const auto open = managedWindows();
    if (open.empty()) {
        visibility_.endHiding();
        return true;
    }
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

void LinuxApplication::windowChanged(WindowEvent event) {
    if (event == WindowEvent::appeared) {
        forgetTermination();
        visibility_.windowAppeared();
    } else if (terminationLapse_ && managedWindows().empty()) {
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
    if (isAway(now, ownsTrayItem_)) {
        settling_ = services_.queue.asyncAfter(withdrawalTime, lifetime_.guard([this] { settled(); }));
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
