#include "Platform/Linux/LinuxWorkspace.h"

#include "Platform/Bundle.h"
#include "Platform/Linux/ApplicationIdentifier.h"
#include "Platform/Linux/LinkOpener.h"
#include "Platform/Linux/Process.h"
#include "Platform/Linux/ProgramPresence.h"
#include "Platform/Linux/TrayItems.h"

#include <algorithm>
#include <utility>

#include <unistd.h>

namespace ambrel {

LinuxWorkspace::LinuxWorkspace(ApplicationServices services, ApplicationIdentifier& identifier, LinkOpener& links,
                               const ProgramPresence& presence, std::optional<std::string> ownIdentifier)
    : services_(services), identifier_(identifier), links_(links), presence_(presence),
      ownIdentifier_(std::move(ownIdentifier)) {
    auto& windows = services_.windows;
    subscriptions_.push_back(
        windows.didChange.subscribe([this](const WindowChange& change) { windowChanged(change); }));
    subscriptions_.push_back(windows.activeDidChange.subscribe([this] { activeChanged(); }));
    subscriptions_.push_back(windows.readableDidChange.subscribe([this](bool readable) { readableChanged(readable); }));
    subscriptions_.push_back(services_.tray.didChange.subscribe([this] { trayChanged(); }));
    for (const auto pid : windows.processes()) {
        for (const auto& window : windows.windows(pid)) {
            windowChanged({WindowEvent::appeared, pid, window});
        }
    }
    activeChanged();
}

std::vector<RunningApplicationRef> LinuxWorkspace::runningApplications() const {
    std::vector<RunningApplicationRef> applications;
    for (const auto pid : order_) {
        applications.push_back(entries_.at(pid).application);
    }
    return applications;
}

RunningApplicationRef LinuxWorkspace::runningApplication(ProcessId pid) const {
    return find(pid);
}

std::vector<RunningApplicationRef>
LinuxWorkspace::runningApplicationsWithBundleIdentifier(const std::string& bundleIdentifier) const {
    auto found = runningApplications();
    std::erase_if(found, [&](const auto& application) { return application->bundleIdentifier() != bundleIdentifier; });
    if (bundleIdentifier != ownIdentifier_.value_or(productIdentifier)) {
        return found;
    }
    for (const auto pid : presence_.otherInstances()) {
        if (auto process = find(pid) ? nullptr : Process::open(pid, [] {})) {
            const auto copy = std::make_shared<LinuxApplication>(services_, std::move(process));
            copy->setIdentity({.bundleIdentifier = bundleIdentifier, .localizedName = {}, .entry = {}});
            found.push_back(copy);
        }
    }
    return found;
}

bool LinuxWorkspace::processExists(ProcessId pid) const {
    return Process::exists(pid);
}

ProcessId LinuxWorkspace::currentProcessIdentifier() const {
    return getpid();
}

std::optional<InstalledApplication> LinuxWorkspace::installedApplication(const std::string& bundleIdentifier) const {
    return identifier_.installedApplication(bundleIdentifier);
}

std::vector<InstalledApplication> LinuxWorkspace::installedApplications() const {
    return identifier_.installedApplications();
}

void LinuxWorkspace::openApplication(const std::filesystem::path& url) {
    identifier_.open(url);
}

void LinuxWorkspace::openURL(const std::string& url) {
    links_.open(url);
}

void LinuxWorkspace::revealFile(const std::filesystem::path& file) {
    links_.reveal(file);
}

LinuxWorkspace::ApplicationRef LinuxWorkspace::find(ProcessId pid) const {
    const auto entry = entries_.find(pid);
    return entry != entries_.end() ? entry->second.application : nullptr;
}

void LinuxWorkspace::windowChanged(const WindowChange& change) {
    auto application = find(change.pid);
    if (change.event == WindowEvent::appeared) {
        if (application && application->isTerminated()) {
            exited(application);
            application = nullptr;
        }
        application = application ? application : admit(change.pid, change.window.id);
    }
    if (!application) {
        return;
    }
    if (change.event == WindowEvent::appeared) {
        welcome(application, change.window);
    }
    application->windowChanged(change);
}

/// The process is held before its window is asked about once more: a window that is still there then belongs to
/// the process that is held, and not to an earlier one with the same id.
LinuxWorkspace::ApplicationRef LinuxWorkspace::admit(ProcessId pid, WindowId window) {
    const auto slot = std::make_shared<std::weak_ptr<LinuxApplication>>();
    auto process = Process::open(pid, lifetime_.guard([this, slot] {
        if (const auto application = slot->lock()) {
            exited(application);
        }
    }));
    if (!process || !services_.windows.confirmOwner(window, pid)) {
        return nullptr;
    }
    auto application = std::make_shared<LinuxApplication>(services_, std::move(process));
    *slot = application;
    enter(application);
    return application;
}

void LinuxWorkspace::enter(const ApplicationRef& application) {
    const auto pid = application->processIdentifier();
    auto visibility = application->visibilityDidChange.subscribe(
        [this, known = std::weak_ptr(application)](LinuxApplication::Transition transition) {
            if (const auto changed = known.lock()) {
                visibilityChanged(changed, transition);
            }
        });
    order_.push_back(pid);
    entries_.insert_or_assign(pid, Entry{application, std::move(visibility)});
}

void LinuxWorkspace::welcome(const ApplicationRef& application, const DesktopWindow& window) {
    const bool standard = window.kind == WindowKind::standard;
    const bool launches = standard && !application->isLaunched();
    const auto facts = services_.windows.facts(window.id);
    if (facts.quitAction) {
        application->setQuitAction(*facts.quitAction);
    }
    if (launches || (!application->isLaunched() && !application->bundleIdentifier())) {
        application->setIdentity(identifier_.identify(application->processIdentifier(), facts.identity));
    }
    if (launches) {
        application->setLaunched();
        didLaunch.emit(application);
    }
}

void LinuxWorkspace::exited(const ApplicationRef& application) {
    const auto pid = application->processIdentifier();
    if (find(pid) != application) {
        return;
    }
    std::erase(order_, pid);
    entries_.erase(pid);
    if (frontmost_ == application) {
        frontmost_ = nullptr;
    }
    didTerminate.emit(application);
}

void LinuxWorkspace::visibilityChanged(const ApplicationRef& application, LinuxApplication::Transition transition) {
    if (transition == LinuxApplication::Transition::hidden) {
        didHide.emit(application);
    } else {
        didUnhide.emit(application);
    }
}

void LinuxWorkspace::activeChanged() {
    const auto pid = services_.windows.activeProcess();
    const auto front = pid ? find(*pid) : nullptr;
    if (front == frontmost_) {
        return;
    }
    const auto left = std::exchange(frontmost_, front);
    if (left) {
        didDeactivate.emit(left);
    }
    if (front) {
        didActivate.emit(front);
    }
}

void LinuxWorkspace::readableChanged(bool readable) {
    if (!readable) {
        return;
    }
    for (const auto pid : std::vector(order_)) {
        if (const auto application = find(pid)) {
            application->judgeVisibility();
        }
    }
}

void LinuxWorkspace::trayChanged() {
    for (const auto pid : std::vector(order_)) {
        if (const auto application = find(pid)) {
            application->trayChanged();
        }
    }
}

} // namespace ambrel
