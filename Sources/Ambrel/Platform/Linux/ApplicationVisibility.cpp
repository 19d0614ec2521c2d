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

bool isAway(ApplicationVisibility::Windows windows, bool ownsTrayItem) {
    return (ownsTrayItem || !windows.empty()) && std::none_of(windows.begin(), windows.end(), isManaged);
}

void ApplicationVisibility::beginHiding() {
    if (!isHidden()) {
        state_ = State::hiding;
    }
}

void ApplicationVisibility::endHiding() {
    if (state_ == State::hiding) {
        state_ = State::asked;
    }
}

void ApplicationVisibility::windowAppeared() {
    if (state_ == State::asked) {
        state_ = State::shown;
    }
}

ApplicationVisibility::Transition ApplicationVisibility::changed(Windows windows, bool ownsTrayItem) {
    const bool open = std::any_of(windows.begin(), windows.end(), isOpen);
    const bool managed = std::any_of(windows.begin(), windows.end(), isManaged);
    inTray_ = ownsTrayItem && !managed;
    if (windows.empty() && !ownsTrayItem) {
        state_ = state_ == State::asked ? State::asked : State::shown;
        return Transition::none;
    }
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

ApplicationVisibility::Transition ApplicationVisibility::settled(Windows windows, bool ownsTrayItem) {
    if (state_ == State::requested || state_ == State::withdrawn || !isAway(windows, ownsTrayItem)) {
        return Transition::none;
    }
    state_ = State::withdrawn;
    return Transition::hidden;
}

} // namespace ambrel
