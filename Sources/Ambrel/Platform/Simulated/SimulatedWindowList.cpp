#include "Platform/Simulated/SimulatedWindowList.h"

#include "Platform/Simulated/SimulatedWorkspace.h"

namespace ambrel::simulated {

namespace {

ApplicationWindow listed(const SimulatedWindow& window) {
    return {
        .kind = window.kind, .minimized = window.minimised, .onDesktop = !window.withdrawn, .certain = window.certain};
}

} // namespace

SimulatedWindowList::SimulatedWindowList(SimulatedWorkspace& workspace) : workspace_(workspace) {
    subscriptions_.push_back(
        workspace.windowEvent.subscribe([this](ProcessId pid, WindowEvent event) { tell(pid, event); }));
    subscriptions_.push_back(
        workspace.didTerminate.subscribe([this](const auto& app) { forget(app->processIdentifier()); }));
}

bool SimulatedWindowList::isReadable() const {
    return workspace_.hasWindowManager;
}

WindowsReading SimulatedWindowList::reading(ProcessId pid) const {
    if (!isReadable()) {
        return Unreadable::noWindowManager;
    }
    const auto app = workspace_.find(pid);
    if (!app) {
        return Unreadable::processGone;
    }
    if (auto& faults = app->faults; faults.failingReads > 0) {
        faults.failingReads -= faults.failingReads == WindowFaults::untilCleared ? 0 : 1;
        return faults.reason;
    }
    std::vector<ApplicationWindow> windows;
    for (const auto& window : app->windows()) {
        if (isApplicationWindow(window.kind)) {
            windows.push_back(listed(window));
        }
    }
    return windows;
}

void SimulatedWindowList::setReadable(bool readable) {
    if (isReadable() == readable) {
        return;
    }
    workspace_.hasWindowManager = readable;
    workspace_.queue().async([this, readable] { readableDidChange.emit(readable); });
}

} // namespace ambrel::simulated
