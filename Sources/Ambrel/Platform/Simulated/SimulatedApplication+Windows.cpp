#include "Platform/Simulated/SimulatedApplication.h"
#include "Platform/Simulated/SimulatedWorkspace.h"

#include <algorithm>

namespace ambrel::simulated {

namespace {

constexpr Seconds withdrawalGrace{0.25};

bool isStandard(const SimulatedWindow& window) {
    return window.subrole == "AXStandardWindow";
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
    }
    post("AXWindowCreated");
    if (isOnScreen(window)) {
        focusWindow(window.id);
    }
    return window.id;
}

WindowId SimulatedApplication::openDialog() {
    return openWindow({.subrole = "AXDialog", .frame = {300, 300, 400, 200}});
}

void SimulatedApplication::closeWindow(WindowId id) {
    const auto* closed = window(id);
    if (closed == nullptr) {
        return;
    }
    const bool wasOnScreen = isOnScreen(*closed);
    std::erase_if(windows_, [id](const SimulatedWindow& each) { return each.id == id; });
    post("AXUIElementDestroyed");
    leaveScreen(wasOnScreen);
}

void SimulatedApplication::closeWindows() {
    while (!windows_.empty()) {
        closeWindow(windows_.back().id);
    }
}

void SimulatedApplication::minimise(WindowId id) {
    auto* const target = window(id);
    if (target == nullptr || target->minimised) {
        return;
    }
    const bool wasOnScreen = isOnScreen(*target);
    target->minimised = true;
    post("AXWindowMiniaturized");
    leaveScreen(wasOnScreen);
}

void SimulatedApplication::restore(WindowId id) {
    auto* const target = window(id);
    if (target == nullptr || !target->minimised) {
        return;
    }
    target->minimised = false;
    post("AXWindowDeminiaturized");
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
    leaveScreen(wasOnScreen);
}

void SimulatedApplication::map(WindowId id) {
    auto* const target = window(id);
    if (target == nullptr || !target->withdrawn) {
        return;
    }
    target->withdrawn = false;
    show();
    focusWindow(id);
}

void SimulatedApplication::focusWindow(WindowId id) {
    if (window(id) == nullptr) {
        return;
    }
    post("AXFocusedWindowChanged");
    activate();
}

void SimulatedApplication::leaveScreen(bool wasOnScreen) {
    if (hasWindowOnScreen()) {
        post("AXFocusedWindowChanged");
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
    const bool onDesktop =
        std::any_of(windows_.begin(), windows_.end(), [](const auto& each) { return !each.withdrawn; });
    const bool canComeBack = hasTrayItem || std::any_of(windows_.begin(), windows_.end(), isStandard);
    if (!onDesktop && canComeBack) {
        setHidden(true);
    }
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
