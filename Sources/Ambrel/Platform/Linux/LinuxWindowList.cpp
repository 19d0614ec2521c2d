#include "Platform/Linux/LinuxWindowList.h"

#include "Platform/Linux/LinuxWorkspace.h"

namespace ambrel {

LinuxWindowList::LinuxWindowList(WindowSource& windows, LinuxWorkspace& workspace)
    : windows_(windows), workspace_(workspace) {
    subscriptions_.push_back(
        windows_.didChange.subscribe([this](const WindowChange& change) { tell(change.pid, change.event); }));
    subscriptions_.push_back(windows_.activeDidChange.subscribe([this] {
        if (const auto pid = windows_.activeProcess()) {
            tell(*pid, WindowEvent::focused);
        }
    }));
    subscriptions_.push_back(
        windows_.readableDidChange.subscribe([this](bool readable) { readableDidChange.emit(readable); }));
    subscriptions_.push_back(workspace_.didHide.subscribe(
        [this](const auto& application) { tell(application->processIdentifier(), WindowEvent::hidden); }));
    subscriptions_.push_back(workspace_.didUnhide.subscribe(
        [this](const auto& application) { tell(application->processIdentifier(), WindowEvent::shown); }));
    subscriptions_.push_back(workspace_.didTerminate.subscribe(
        [this](const auto& application) { forget(application->processIdentifier()); }));
}

WindowsReading LinuxWindowList::reading(ProcessId pid) const {
    if (!windows_.isReadable()) {
        return Unreadable::noWindowManager;
    }
    if (!workspace_.runningApplication(pid)) {
        return Unreadable::processGone;
    }
    const auto windows = windows_.windows(pid);
    return std::vector<ApplicationWindow>(windows.begin(), windows.end());
}

} // namespace ambrel
