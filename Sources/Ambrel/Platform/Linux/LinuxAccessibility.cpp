#include "Platform/Linux/LinuxAccessibility.h"

#include "Platform/Linux/LinuxWorkspace.h"

#include <set>
#include <utility>

namespace ambrel {

namespace {

const char* subrole(WindowKind kind) {
    switch (kind) {
    case WindowKind::dialog:
        return "AXDialog";
    case WindowKind::floating:
        return "AXFloatingWindow";
    default:
        return "AXStandardWindow";
    }
}

const char* notification(WindowEvent event) {
    switch (event) {
    case WindowEvent::appeared:
        return "AXWindowCreated";
    case WindowEvent::minimized:
        return "AXWindowMiniaturized";
    case WindowEvent::restored:
        return "AXWindowDeminiaturized";
    case WindowEvent::vanished:
        return "AXUIElementDestroyed";
    case WindowEvent::withdrawn:
        break;
    }
    return nullptr;
}

class LinuxApplicationElement final : public ApplicationElement {
public:
    LinuxApplicationElement(const WindowSource& windows, const Workspace& workspace, ProcessId pid)
        : windows_(windows), workspace_(workspace), pid_(pid) {}

    [[nodiscard]] WindowsReading copyWindows() const override {
        if (!windows_.isReadable()) {
            return {AXError::cannotComplete, std::nullopt};
        }
        if (!workspace_.runningApplication(pid_)) {
            return {AXError::noValue, std::nullopt};
        }
        std::vector<WindowElement> elements;
        for (const auto& window : windows_.windows(pid_)) {
            elements.push_back({"AXWindow", subrole(window.kind), window.minimized});
        }
        return {AXError::success, std::move(elements)};
    }

private:
    const WindowSource& windows_;
    const Workspace& workspace_;
    ProcessId pid_;
};

class LinuxObserver final : public AccessibilityObserver {
public:
    LinuxObserver(const WindowSource& windows, Signal<const std::string&>& notifications,
                  AccessibilityCallback callback)
        : windows_(windows),
          subscription_(notifications.subscribe([this, callback = std::move(callback)](const std::string& name) {
              if (names_.contains(name)) {
                  callback(name);
              }
          })) {}

    AXError addNotification(std::string_view name) override {
        if (!windows_.isReadable()) {
            return AXError::cannotComplete;
        }
        return names_.emplace(name).second ? AXError::success : AXError::notificationAlreadyRegistered;
    }
    void removeNotification(std::string_view name) override { names_.erase(std::string(name)); }

private:
    const WindowSource& windows_;
    std::set<std::string> names_;
    Subscription subscription_;
};

} // namespace

LinuxAccessibility::LinuxAccessibility(WindowSource& windows, LinuxWorkspace& workspace)
    : windows_(windows), workspace_(workspace) {
    subscriptions_.push_back(
        windows_.didChange.subscribe([this](const WindowChange& change) { windowChanged(change); }));
    subscriptions_.push_back(windows_.activeDidChange.subscribe([this] {
        if (const auto pid = windows_.activeProcess()) {
            post(*pid, "AXFocusedWindowChanged");
        }
    }));
    subscriptions_.push_back(
        windows_.readableDidChange.subscribe([this](bool readable) { trustDidChange.emit(readable); }));
    subscriptions_.push_back(workspace_.didHide.subscribe(
        [this](const auto& application) { post(application->processIdentifier(), "AXApplicationHidden"); }));
    subscriptions_.push_back(workspace_.didUnhide.subscribe(
        [this](const auto& application) { post(application->processIdentifier(), "AXApplicationShown"); }));
    subscriptions_.push_back(workspace_.didTerminate.subscribe(
        [this](const auto& application) { notifications_.erase(application->processIdentifier()); }));
}

std::unique_ptr<ApplicationElement> LinuxAccessibility::createApplication(ProcessId pid) {
    return std::make_unique<LinuxApplicationElement>(windows_, workspace_, pid);
}

ObserverCreation LinuxAccessibility::createObserver(ProcessId pid, AccessibilityCallback callback) {
    if (!workspace_.runningApplication(pid)) {
        return {AXError::failure, nullptr};
    }
    return {AXError::success, std::make_unique<LinuxObserver>(windows_, notifications_[pid], std::move(callback))};
}

void LinuxAccessibility::windowChanged(const WindowChange& change) {
    if (const char* const name = notification(change.event)) {
        post(change.pid, name);
    }
}

void LinuxAccessibility::post(ProcessId pid, const std::string& notification) const {
    const auto signal = notifications_.find(pid);
    if (signal != notifications_.end()) {
        signal->second.emit(notification);
    }
}

} // namespace ambrel
