#include "Platform/Linux/ApplicationVisibility.h"

#include <algorithm>

namespace ambrel {

namespace {

bool isOnDesktop(const DesktopWindow& window) {
    return window.onDesktop;
}

bool isOpen(const DesktopWindow& window) {
    return window.onDesktop && !window.minimized;
}

} // namespace

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

/// Dialogs come and go beside a hidden window without a word on it.
void ApplicationVisibility::note(WindowEvent event, const DesktopWindow& window, Seconds now) {
    const bool standard = window.kind == WindowKind::standard;
    if (event == WindowEvent::appeared && standard) {
        withdrawn_.clear();
    } else if (event == WindowEvent::withdrawn && standard) {
        forgetWithdrawnBefore(now - withdrawalTime);
        withdrawn_[window.id] = now;
    } else if (event == WindowEvent::vanished) {
        withdrawn_.erase(window.id);
        if (standard && window.onDesktop) {
            forgetWithdrawnBefore(now - withdrawalTime);
        }
    }
}

/// They were off the desktop when others were still on it.
void ApplicationVisibility::forgetWithdrawnBefore(Seconds time) {
    std::erase_if(withdrawn_, [time](const auto& entry) { return entry.second < time; });
}

ApplicationVisibility::Transition ApplicationVisibility::changed(Windows windows, bool ownsTrayItem) {
    const bool open = std::any_of(windows.begin(), windows.end(), isOpen);
    const bool present = std::any_of(windows.begin(), windows.end(), isOnDesktop);
    inTray_ = ownsTrayItem && !present;
    if (!present && !isAway(windows, ownsTrayItem)) {
        state_ = State::shown;
        return Transition::none;
    }
    if (state_ == State::hiding && present && !open) {
        state_ = State::requested;
        return Transition::hidden;
    }
    if ((state_ == State::requested && open) || (state_ == State::withdrawn && present)) {
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

bool ApplicationVisibility::isAway(Windows windows, bool ownsTrayItem) const {
    return (ownsTrayItem || !withdrawn_.empty()) && std::none_of(windows.begin(), windows.end(), isOnDesktop);
}

} // namespace ambrel
