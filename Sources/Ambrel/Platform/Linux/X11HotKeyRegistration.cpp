#include "Platform/Linux/X11HotKeyRegistration.h"

#include "Platform/Linux/X11Keymap.h"

#include <utility>

namespace ambrel {

namespace {

constexpr std::int32_t takenByAnother = -9878;
constexpr std::int32_t noSuchCombination = -9879;

} // namespace

X11HotKeyRegistration::X11HotKeyRegistration(X11Connection& connection, HotKey key, std::function<void()> onPress)
    : connection_(connection), key_(key), onPress_(std::move(onPress)), combination_(X11Keymap(connection).find(key)) {
    events_ = connection_.event.subscribe([this](const auto& event) { handle(event); });
    drained_ = connection_.drained.subscribe([this] {
        if (std::exchange(mapChanged_, false)) {
            mapChanged();
        }
    });
    grab();
}

X11HotKeyRegistration::~X11HotKeyRegistration() {
    ungrab();
}

void X11HotKeyRegistration::grab() {
    if (!combination_) {
        status_ = noSuchCombination;
    } else if (grabAll()) {
        status_ = 0;
    } else {
        ungrab();
        status_ = takenByAnother;
    }
}

bool X11HotKeyRegistration::grabAll() {
    std::vector<xcb_void_cookie_t> requests;
    for (const auto key : combination_->keys) {
        for (const auto state : combination_->states()) {
            requests.push_back(xcb_grab_key_checked(connection_.raw(), 0, connection_.root(), state, key,
                                                    XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC));
        }
    }
    bool granted = true;
    for (const auto request : requests) {
        const X11Message<xcb_generic_error_t> error(xcb_request_check(connection_.raw(), request));
        granted = granted && !error;
    }
    return granted;
}

void X11HotKeyRegistration::ungrab() {
    if (!combination_) {
        return;
    }
    for (const auto key : combination_->keys) {
        xcb_ungrab_key(connection_.raw(), key, connection_.root(), XCB_MOD_MASK_ANY);
    }
    xcb_flush(connection_.raw());
}

void X11HotKeyRegistration::handle(const xcb_generic_event_t& event) {
    if (event.response_type == XCB_KEY_PRESS) {
        pressed(reinterpret_cast<const xcb_key_press_event_t&>(event));
    } else if (event.response_type == XCB_KEY_RELEASE) {
        const auto& release = reinterpret_cast<const xcb_key_release_event_t&>(event);
        releasedKey_ = release.detail;
        releaseTime_ = release.time;
    } else if (event.response_type == XCB_MAPPING_NOTIFY) {
        const auto request = reinterpret_cast<const xcb_mapping_notify_event_t&>(event).request;
        mapChanged_ = mapChanged_ || request != XCB_MAPPING_POINTER;
    }
}

void X11HotKeyRegistration::pressed(const xcb_key_press_event_t& press) {
    // A key that repeats by itself is released and pressed in the same instant.
    const bool repeats = press.detail == releasedKey_ && press.time == releaseTime_;
    if (!repeats && combination_ && combination_->matches(press.detail, press.state)) {
        // The observer may give up the registration.
        const auto onPress = onPress_;
        onPress();
    }
}

/// Letting go of a grab and taking it anew can hold up the whole desktop, so it is done only when it has to be.
void X11HotKeyRegistration::mapChanged() {
    auto combination = X11Keymap(connection_).find(key_);
    if (combination == combination_) {
        return;
    }
    ungrab();
    combination_ = std::move(combination);
    const auto before = status_;
    grab();
    if (status_ != before) {
        report();
    }
}

void X11HotKeyRegistration::report() const {
    if (status_ != 0) {
        log_.error("RegisterEventHotKey failed: {}", status_);
    } else {
        log_.notice("registered global hotkey (keyCode {})", key_.keyCode);
    }
}

} // namespace ambrel
