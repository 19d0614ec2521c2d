#include "Platform/Linux/ApplicationVisibility.h"

#include <algorithm>

namespace ambrel {

namespace {

bool isManaged(const DesktopWindow& window) {
    return window.managed;
}

bool isOpen(const DesktopWindow& window) {
    return window.managed && !window.minimized;
}

} // namespace

bool areAllWithdrawn(ApplicationVisibility::Windows windows) {
    return !windows.empty() && std::none_of(windows.begin(), windows.end(), isManaged);
}

void ApplicationVisibility::beginHiding() {
    if (!isHidden()) {
        state_ = State::hiding;
    }
}

void ApplicationVisibility::endHiding() {
    if (state_ == State::hiding) {
        state_ = State::shown;
    }
}

ApplicationVisibility::Transition ApplicationVisibility::windowsChanged(Windows windows) {
    if (windows.empty()) {
        state_ = State::shown;
        return Transition::none;
    }
    const bool open = std::any_of(windows.begin(), windows.end(), isOpen);
    const bool managed = std::any_of(windows.begin(), windows.end(), isManaged);
    if (state_ == State::hiding && managed && !open) {
        state_ = State::requested;
        return Transition::hidden;
    }
    if ((state_ == State::requested && open) || (state_ == State::withdrawn && managed)) {
        state_ = State::shown;
        return Transition::shown;
    }
    return Transition::none;
}

ApplicationVisibility::Transition ApplicationVisibility::windowsSettled(Windows windows) {
    if (isHidden() || !areAllWithdrawn(windows)) {
        return Transition::none;
    }
    state_ = State::withdrawn;
    return Transition::hidden;
}

} // namespace ambrel
