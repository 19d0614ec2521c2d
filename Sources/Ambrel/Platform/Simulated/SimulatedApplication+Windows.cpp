#include "Platform/Simulated/SimulatedApplication.h"
#include "Platform/Simulated/SimulatedWorkspace.h"

#include <algorithm>

namespace ambrel::simulated {

namespace {

constexpr Seconds withdrawalGrace{0.25};

bool isStandard(const SimulatedWindow& window) {
    return window.kind == WindowKind::standard;
}

} // namespace

WindowId SimulatedApplication::openWindow(SimulatedWindow window) {
    if (terminated_) {
        return 0;
    }
    window.id = ++lastWindow_;
    windows_.push_back(window);
    if (!window.withdrawn) {
        show();
        if (isStandard(window)) {
            withdrawn_.clear();
        }
    }
    post(WindowEvent::appeared);
    if (isOnScreen(window)) {
        focusWindow(window.id);
    }
    return window.id;
}

WindowId SimulatedApplication::openDialog() {
    return openWindow({.kind = WindowKind::dialog, .frame = {300, 300, 400, 200}});
}

void SimulatedApplication::closeWindow(WindowId id) {
    const auto* closed = window(id);
    if (closed == nullptr) {
        return;
    }
    const bool wasOnScreen = isOnScreen(*closed);
    if (isStandard(*closed) && !closed->withdrawn) {
        forgetWithdrawnBefore(workspace_.queue().now() - withdrawalGrace);
    }
    std::erase_if(windows_, [id](const SimulatedWindow& each) { return each.id == id; });
    withdrawn_.erase(id);
    if (!hasWindowOnDesktop() && withdrawn_.empty() && !hasTrayItem) {
        hidden_ = false; // nothing is left by which it could be brought back
    }
    post(WindowEvent::vanished);
    leaveScreen(wasOnScreen);
}

void SimulatedApplication::closeWindows() {
    while (!windows_.empty()) {
        closeWindow(windows_.back().id);
    }
}

void SimulatedApplication::minimise(WindowId id) {
    auto* const target = window(id);
    if (target == nullptr || target->minimised || workspace_.refusesToIconify) {
        return;
    }
    const bool wasOnScreen = isOnScreen(*target);
    target->minimised = true;
    post(WindowEvent::minimized);
    leaveScreen(wasOnScreen);
}

void SimulatedApplication::restore(WindowId id) {
    auto* const target = window(id);
    if (target == nullptr || !target->minimised) {
        return;
    }
    target->minimised = false;
    post(WindowEvent::restored);
    focusWindow(id);
}

void SimulatedApplication::withdraw(WindowId id) {
    auto* const target = window(id);
    if (target == nullptr || target->withdrawn) {
        return;
    }
    if (!isStandard(*target)) {
        return closeWindow(id);
    }
    const bool wasOnScreen = isOnScreen(*target);
    target->withdrawn = true;
    forgetWithdrawnBefore(workspace_.queue().now() - withdrawalGrace);
    withdrawn_[id] = workspace_.queue().now();
    post(WindowEvent::withdrawn);
    leaveScreen(wasOnScreen);
}

void SimulatedApplication::map(WindowId id) {
    auto* const target = window(id);
    if (target == nullptr || !target->withdrawn) {
        return;
    }
    target->withdrawn = false;
    withdrawn_.clear();
    show();
    post(WindowEvent::appeared);
    focusWindow(id);
}

void SimulatedApplication::focusWindow(WindowId id) {
    if (window(id) == nullptr) {
        return;
    }
    post(WindowEvent::focused);
    activate();
}

void SimulatedApplication::leaveScreen(bool wasOnScreen) {
    if (hasWindowOnScreen()) {
        post(WindowEvent::focused);
    } else if (wasOnScreen) {
        workspace_.passFocusOn(*this);
    }
    workspace_.queue().asyncAfter(withdrawalGrace, [self = weak_from_this()] {
        if (const auto alive = self.lock()) {
            alive->hideIfKeptInBackground();
        }
    });
}

void SimulatedApplication::hideIfKeptInBackground() {
    if (!hasWindowOnDesktop() && (hasTrayItem || !withdrawn_.empty())) {
        setHidden(true);
    }
}

/// Windows that were off the desktop when others were still on it.
void SimulatedApplication::forgetWithdrawnBefore(Date date) {
    std::erase_if(withdrawn_, [date](const auto& entry) { return entry.second < date; });
}

void SimulatedApplication::setKind(WindowId id, WindowKind kind) {
    if (auto* const changed = window(id); changed != nullptr && isApplicationWindow(kind)) {
        changed->kind = kind;
        post(WindowEvent::appeared);
    }
}

bool SimulatedApplication::hasWindowOnDesktop() const {
    return std::any_of(windows_.begin(), windows_.end(), [](const auto& each) { return !each.withdrawn; });
}

SimulatedWindow* SimulatedApplication::window(WindowId id) {
    const auto found = std::find_if(windows_.begin(), windows_.end(), [id](const auto& each) { return each.id == id; });
    return found == windows_.end() ? nullptr : &*found;
}

bool SimulatedApplication::isOnScreen(const SimulatedWindow& window) const {
    return !hidden_ && !window.minimised && !window.withdrawn && !window.onOtherDesktop;
}

bool SimulatedApplication::hasWindowOnScreen() const {
    return std::any_of(windows_.begin(), windows_.end(), [this](const auto& each) { return isOnScreen(each); });
}

} // namespace ambrel::simulated
