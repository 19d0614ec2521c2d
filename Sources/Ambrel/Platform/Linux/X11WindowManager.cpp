#include "Platform/Linux/X11WindowManager.h"

#include "Platform/Linux/X11Property.h"

#include <algorithm>
#include <utility>

namespace ambrel {

namespace {

/// How long a successor's list has to stay as it is, and after how long it is taken even if it does not.
constexpr Seconds stillness{0.5};
constexpr Seconds longestSettling{3.0};

} // namespace

X11WindowManager::X11WindowManager(X11Connection& connection, MainQueue& queue)
    : connection_(connection), queue_(queue) {
    const X11PropertyRequest list(connection_, connection_.root(), connection_.atom(X11Atom::netClientList), 4);
    const auto announced = readAnnouncement();
    checkWindow_ = announced.window;
    valid_ = announced.valid;
    supportsHidden_ = announced.supportsHidden;
    publications_ = list.take().exists() ? 1 : 0;
    // One that has no window to publish yet hides none.
    trusted_ = valid_;
}

void X11WindowManager::handle(const xcb_generic_event_t& event) {
    if (event.response_type == XCB_PROPERTY_NOTIFY) {
        handleProperty(reinterpret_cast<const xcb_property_notify_event_t&>(event));
    } else if (event.response_type == XCB_DESTROY_NOTIFY) {
        const auto& destroyed = reinterpret_cast<const xcb_destroy_notify_event_t&>(event);
        if (destroyed.window == checkWindow_) {
            lose();
        }
    }
}

void X11WindowManager::handleProperty(const xcb_property_notify_event_t& property) {
    const bool ofRoot = property.window == connection_.root();
    const bool ofCheckWindow = property.window == checkWindow_;
    const bool announces =
        ((ofRoot || ofCheckWindow) && property.atom == connection_.atom(X11Atom::netSupportingWmCheck)) ||
        (ofRoot && property.atom == connection_.atom(X11Atom::netSupported));
    if (announces) {
        doubt();
    } else if (ofRoot && property.atom == connection_.atom(X11Atom::netClientList)) {
        // Some delete the list when no window is left, so a deletion alone is no sign of their going.
        if (property.state == XCB_PROPERTY_NEW_VALUE) {
            ++publications_;
            settle();
        }
    }
}

void X11WindowManager::doubt() {
    if (trusted_ && !doubtful_) {
        publicationsAtDoubt_ = publications_;
    }
    doubtful_ = true;
}

void X11WindowManager::lose() {
    if (!doubtful_) {
        publicationsAtDoubt_ = publications_;
    }
    doubtful_ = true;
    distrust();
}

void X11WindowManager::update() {
    if (std::exchange(doubtful_, false)) {
        adopt(readAnnouncement());
    }
}

X11WindowManager::Announcement X11WindowManager::readAnnouncement() {
    const auto check = connection_.atom(X11Atom::netSupportingWmCheck);
    const X11PropertyRequest supportedRequest(connection_, connection_.root(), connection_.atom(X11Atom::netSupported));
    const auto window = X11PropertyRequest(connection_, connection_.root(), check).take().word().value_or(0);
    const auto supported = connection_.names(supportedRequest.take().words());
    const auto supports = [&supported](X11Atom atom) {
        return std::find(supported.begin(), supported.end(), atom) != supported.end();
    };
    if (window != checkWindow_) {
        // Its own half of the announcement may come after the root's.
        connection_.selectEvents(window, XCB_EVENT_MASK_STRUCTURE_NOTIFY | XCB_EVENT_MASK_PROPERTY_CHANGE);
    }
    const bool pointsToItself = X11PropertyRequest(connection_, window, check).take().word() == window;
    return {.window = window,
            .valid = window != XCB_WINDOW_NONE && pointsToItself && supports(X11Atom::netClientList),
            .supportsHidden = supports(X11Atom::netWmStateHidden)};
}

void X11WindowManager::adopt(const Announcement& announced) {
    if (announced.window != checkWindow_ || !announced.valid) {
        distrust();
    }
    checkWindow_ = announced.window;
    valid_ = announced.valid;
    supportsHidden_ = announced.supportsHidden;
    settle();
}

void X11WindowManager::settle() {
    if (trusted_ || !valid_) {
        return;
    }
    const auto now = std::chrono::steady_clock::now();
    const Seconds passed = now - settlingSince_.value_or(now);
    settlingSince_ = settlingSince_.value_or(now);
    if (settling_) {
        settling_->cancel();
    }
    // One that finds no window may never set a list, and has then none to hide.
    const bool published = publications_ != publicationsAtDoubt_;
    const Seconds left = longestSettling - passed;
    settling_ = queue_.asyncAfter(published ? std::min(stillness, left) : left, [this] { becomeTrusted(); });
}

void X11WindowManager::becomeTrusted() {
    settling_.reset();
    settlingSince_.reset();
    trusted_ = true;
    trustDidChange.emit(true);
}

void X11WindowManager::distrust() {
    settlingSince_.reset();
    if (settling_) {
        std::exchange(settling_, nullptr)->cancel();
    }
    if (std::exchange(trusted_, false)) {
        trustDidChange.emit(false);
    }
}

} // namespace ambrel
