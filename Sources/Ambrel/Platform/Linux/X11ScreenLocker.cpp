#include "Platform/Linux/X11ScreenLocker.h"

#include "Platform/Linux/X11ClientSearch.h"
#include "Platform/Linux/X11Property.h"
#include "Platform/Linux/X11WindowQuery.h"

#include <algorithm>
#include <utility>

namespace ambrel {

namespace {

/// A locker's window may come after its grab.
constexpr Seconds looks[] = {Seconds(0), Seconds(0.1), Seconds(0.5), Seconds(2)};
/// One leaves a pixel free on each side.
constexpr double nearlyAll = 0.98;

bool covers(const X11Top& top, const xcb_screen_t& screen) {
    if (!top.overrideRedirect || !top.bounds) {
        return false;
    }
    const auto span = [](double begin, double length, double limit) {
        return std::min(begin + length, limit) - std::max(begin, 0.0);
    };
    return span(top.bounds->x, top.bounds->width, screen.width_in_pixels) >= nearlyAll * screen.width_in_pixels &&
           span(top.bounds->y, top.bounds->height, screen.height_in_pixels) >= nearlyAll * screen.height_in_pixels;
}

} // namespace

X11ScreenLocker::X11ScreenLocker(X11Connection& connection, const X11WindowMirror& mirror, MainQueue& queue)
    : connection_(connection), mirror_(mirror), queue_(queue) {}

void X11ScreenLocker::start() {
    events_ = connection_.event.subscribe([this](const auto& event) { handle(event); });
    drained_ = connection_.drained.subscribe([this] { work(); });
    connection_.selectEvents(connection_.root(), XCB_EVENT_MASK_FOCUS_CHANGE | XCB_EVENT_MASK_PROPERTY_CHANGE,
                             X11Listener::session);
    // It leaves its word behind when it is killed.
    saysLocked_ = readStatus() && isScreenCovered();
    isGrabbed_ = saysLocked_;
}

void X11ScreenLocker::handle(const xcb_generic_event_t& event) {
    const auto type = event.response_type & 0x7f;
    if (type == XCB_FOCUS_IN || type == XCB_FOCUS_OUT) {
        const auto& focus = reinterpret_cast<const xcb_focus_in_event_t&>(event);
        if (focus.event != connection_.root()) {
            return;
        }
        if (focus.mode == XCB_NOTIFY_MODE_GRAB) {
            news_.emplace_back([this] { beginGrab(); });
        } else if (focus.mode == XCB_NOTIFY_MODE_UNGRAB) {
            news_.emplace_back([this] { endGrab(); });
        }
    } else if (type == XCB_PROPERTY_NOTIFY) {
        const auto& property = reinterpret_cast<const xcb_property_notify_event_t&>(event);
        if (property.window == connection_.root() && property.atom == connection_.atom(X11Atom::screenSaverStatus)) {
            news_.emplace_back([this] { set(saysLocked_, readStatus()); });
        }
    }
}

void X11ScreenLocker::work() {
    for (const auto& news : std::exchange(news_, {})) {
        news();
    }
}

void X11ScreenLocker::beginGrab() {
    isGrabbed_ = true;
    for (const auto delay : looks) {
        queue_.asyncAfter(delay, lifetime_.guard([this] { lookForCover(); }));
    }
}

/// Whoever said that the screen is locked has let it go, or died.
void X11ScreenLocker::endGrab() {
    isGrabbed_ = false;
    set(saysLocked_, false);
    set(isCovered_, false);
}

void X11ScreenLocker::lookForCover() {
    if (isGrabbed_ && !isCovered_) {
        set(isCovered_, isScreenCovered());
    }
}

void X11ScreenLocker::set(bool& flag, bool value) {
    const bool before = isLocked();
    flag = value;
    if (isLocked() != before) {
        didChange.emit();
    }
}

bool X11ScreenLocker::isScreenCovered() const {
    std::vector<xcb_window_t> covering;
    for (const auto& top :
         visibleX11Tops(connection_, [](xcb_window_t) { return false; }).value_or(std::vector<X11Top>())) {
        if (covers(top, connection_.screen())) {
            covering.push_back(top.window);
        }
    }
    const auto clients = findX11Clients(connection_, mirror_, covering);
    // The frame of a maximised window looks alike.
    return std::any_of(clients.begin(), clients.end(),
                       [](const auto& client) { return client.second == XCB_WINDOW_NONE; });
}

/// The first word is 0, or the atom "BLANK" or "LOCK".
bool X11ScreenLocker::readStatus() const {
    const auto words = X11PropertyRequest(connection_, connection_.root(), connection_.atom(X11Atom::screenSaverStatus))
                           .take()
                           .words();
    return !words.empty() && words.front() == connection_.atom(X11Atom::lock);
}

} // namespace ambrel
