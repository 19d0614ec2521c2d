#include "Platform/Simulated/SimulatedAccessibility.h"

#include "Platform/Simulated/SimulatedWorkspace.h"

#include <algorithm>
#include <array>
#include <map>

namespace ambrel::simulated {

namespace {

constexpr std::array<std::string_view, 7> notificationNames{
    "AXWindowCreated",        "AXUIElementDestroyed", "AXFocusedWindowChanged", "AXWindowMiniaturized",
    "AXWindowDeminiaturized", "AXApplicationHidden",  "AXApplicationShown"};

/// Bound to one process for good: the next process with the same id has other notifications.
class Observer final : public AccessibilityObserver {
public:
    Observer(SimulatedApplicationRef app, AccessibilityCallback callback)
        : app_(std::move(app)),
          subscription_(app_->notifications.subscribe([this, deliver = std::move(callback)](const std::string& name) {
              if (std::find(names_.begin(), names_.end(), name) != names_.end()) {
                  deliver(name);
              }
          })) {}

    AXError addNotification(std::string_view name) override {
        const auto& refused = app_->accessibility.addNotification;
        if (const auto fault = refused.find(std::string(name)); fault != refused.end()) {
            return fault->second;
        }
        if (std::find(notificationNames.begin(), notificationNames.end(), name) == notificationNames.end()) {
            return AXError::failure;
        }
        if (std::find(names_.begin(), names_.end(), name) != names_.end()) {
            return AXError::notificationAlreadyRegistered;
        }
        names_.emplace_back(name);
        return AXError::success;
    }

    void removeNotification(std::string_view name) override { std::erase(names_, name); }

private:
    SimulatedApplicationRef app_;
    std::vector<std::string> names_;
    Subscription subscription_;
};

WindowElement element(const SimulatedWindow& window) {
    WindowElement read;
    if (!window.unreadable.role) {
        read.role = window.role;
    }
    if (!window.unreadable.subrole) {
        read.subrole = window.subrole;
    }
    if (!window.unreadable.minimised) {
        read.minimized = window.minimised;
    }
    return read;
}

WindowsReading read(SimulatedApplication& app) {
    auto& faults = app.accessibility;
    if (faults.failingReads > 0) {
        faults.failingReads -= faults.failingReads == AccessibilityFaults::untilCleared ? 0 : 1;
        return {faults.readCode, std::nullopt};
    }
    if (faults.windowsMissing) {
        return {};
    }
    std::vector<WindowElement> elements;
    std::transform(app.windows().begin(), app.windows().end(), std::back_inserter(elements), element);
    return {AXError::success, std::move(elements)};
}

} // namespace

class SimulatedAccessibility::Element final : public ApplicationElement {
public:
    Element(const SimulatedAccessibility& accessibility, ProcessId pid) : accessibility_(accessibility), pid_(pid) {}

    [[nodiscard]] WindowsReading copyWindows() const override {
        const auto app = accessibility_.workspace_.find(pid_);
        if (!accessibility_.trusted_) {
            return {AXError::cannotComplete, std::nullopt};
        }
        if (!app) {
            return {AXError::noValue, std::nullopt};
        }
        return read(*app);
    }

private:
    const SimulatedAccessibility& accessibility_;
    ProcessId pid_;
};

std::unique_ptr<ApplicationElement> SimulatedAccessibility::createApplication(ProcessId pid) {
    return std::make_unique<Element>(*this, pid);
}

ObserverCreation SimulatedAccessibility::createObserver(ProcessId pid, AccessibilityCallback callback) {
    auto app = workspace_.find(pid);
    const auto code = app ? app->accessibility.observerCreation : AXError::failure;
    if (code != AXError::success) {
        return {code, nullptr};
    }
    return {code, std::make_unique<Observer>(std::move(app), std::move(callback))};
}

void SimulatedAccessibility::setTrusted(bool trusted) {
    if (trusted_ == trusted) {
        return;
    }
    trusted_ = trusted;
    workspace_.queue().async([this, trusted] { trustDidChange.emit(trusted); });
}

} // namespace ambrel::simulated
