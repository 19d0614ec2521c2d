#include "Platform/Linux/X11Connection.h"

#include <algorithm>
#include <cerrno>
#include <functional>
#include <future>
#include <numeric>
#include <thread>
#include <utility>

#include <QAbstractEventDispatcher>
#include <QSocketNotifier>
#include <fmt/core.h>
#include <xcb/randr.h>
#include <xcb/res.h>

namespace ambrel {

namespace {

constexpr std::uint8_t sentByClient = 0x80;

using Attempt = std::pair<xcb_connection_t*, int>;

/// libxcb waits for the server's greeting without a limit, so it waits on a thread that can be left behind.
std::optional<Attempt> connect(const std::string& display, Seconds timeout) {
    auto promise = std::make_shared<std::promise<Attempt>>();
    auto answer = promise->get_future();
    std::thread([promise, display] {
        int screen = 0;
        xcb_connection_t* const connection = xcb_connect(display.empty() ? nullptr : display.c_str(), &screen);
        promise->set_value({connection, screen});
    }).detach();
    if (answer.wait_for(timeout) != std::future_status::ready) {
        return std::nullopt;
    }
    return answer.get();
}

bool isAtLeast(std::uint32_t major, std::uint32_t minor, std::uint32_t wantedMajor, std::uint32_t wantedMinor) {
    return std::pair(major, minor) >= std::pair(wantedMajor, wantedMinor);
}

xcb_screen_t* findScreen(xcb_connection_t* connection, int number) {
    auto screens = xcb_setup_roots_iterator(xcb_get_setup(connection));
    while (number-- > 0 && screens.rem > 1) {
        xcb_screen_next(&screens);
    }
    return screens.rem > 0 ? screens.data : nullptr;
}

} // namespace

X11Connection::Creation X11Connection::open(const std::string& display, Seconds timeout) {
    const auto attempt = connect(display, timeout);
    const char* const environment = std::getenv("DISPLAY");
    const std::string name = !display.empty() ? display : environment != nullptr ? environment : "";
    if (!attempt) {
        return FileFailure{ETIMEDOUT, fmt::format("X display \"{}\" does not answer", name)};
    }
    const auto [connection, screen] = *attempt;
    if (const int error = xcb_connection_has_error(connection); error != 0) {
        xcb_disconnect(connection);
        return FileFailure{ECONNREFUSED, fmt::format("cannot open X display \"{}\" (xcb error {})", name, error)};
    }
    std::unique_ptr<X11Connection> opened(new X11Connection(connection, screen));
    if (opened->screen_ == nullptr || xcb_connection_has_error(connection) != 0) {
        return FileFailure{EPROTO, fmt::format("X display \"{}\" broke off", name)};
    }
    return opened;
}

X11Connection::X11Connection(xcb_connection_t* connection, int screen)
    : connection_(connection), screen_(findScreen(connection, screen)), screenNumber_(screen) {
    internAtoms();
    findExtensions();
}

X11Connection::~X11Connection() {
    notifier_.reset();
    xcb_disconnect(connection_);
}

void X11Connection::internAtoms() {
    std::vector<xcb_intern_atom_cookie_t> cookies;
    for (const auto name : x11AtomNames) {
        cookies.push_back(xcb_intern_atom(connection_, 0, static_cast<std::uint16_t>(name.size()), name.data()));
    }
    for (const auto cookie : cookies) {
        const X11Message<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(connection_, cookie, nullptr));
        atoms_.push_back(reply ? reply->atom : static_cast<xcb_atom_t>(XCB_ATOM_NONE));
    }
}

void X11Connection::findExtensions() {
    xcb_prefetch_extension_data(connection_, &xcb_res_id);
    xcb_prefetch_extension_data(connection_, &xcb_randr_id);
    const auto* const resource = xcb_get_extension_data(connection_, &xcb_res_id);
    const auto* const randr = xcb_get_extension_data(connection_, &xcb_randr_id);
    if (resource != nullptr && resource->present != 0) {
        const X11Message<xcb_res_query_version_reply_t> reply(
            xcb_res_query_version_reply(connection_, xcb_res_query_version(connection_, 1, 2), nullptr));
        hasResource_ = reply && isAtLeast(reply->server_major, reply->server_minor, 1, 2);
    }
    if (randr != nullptr && randr->present != 0) {
        const X11Message<xcb_randr_query_version_reply_t> reply(
            xcb_randr_query_version_reply(connection_, xcb_randr_query_version(connection_, 1, 5), nullptr));
        hasMonitors_ = reply && isAtLeast(reply->major_version, reply->minor_version, 1, 5);
    }
}

std::vector<X11Atom> X11Connection::names(std::span<const xcb_atom_t> atoms) const {
    std::vector<X11Atom> known;
    for (const auto atom : atoms) {
        const auto found = std::find(atoms_.begin(), atoms_.end(), atom);
        if (found != atoms_.end() && atom != XCB_ATOM_NONE) {
            known.push_back(static_cast<X11Atom>(found - atoms_.begin()));
        }
    }
    return known;
}

void X11Connection::selectEvents(xcb_window_t window, std::uint32_t mask, X11Listener listener) {
    auto& masks = selected_[window];
    masks[static_cast<std::size_t>(listener)] = mask;
    const std::uint32_t all = std::accumulate(masks.begin(), masks.end(), 0U, std::bit_or());
    if (all == XCB_EVENT_MASK_NO_EVENT) {
        selected_.erase(window);
    }
    xcb_change_window_attributes(connection_, window, XCB_CW_EVENT_MASK, &all);
}

void X11Connection::sendToRoot(xcb_window_t window, X11Atom type, std::span<const std::uint32_t> data) {
    xcb_client_message_event_t message{};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = window;
    message.type = atom(type);
    std::copy_n(data.begin(), std::min<std::size_t>(data.size(), 5), message.data.data32);
    xcb_send_event(connection_, 0, root(), XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY,
                   reinterpret_cast<const char*>(&message));
    xcb_flush(connection_);
}

void X11Connection::start() {
    notifier_ = std::make_unique<QSocketNotifier>(xcb_get_file_descriptor(connection_), QSocketNotifier::Read);
    QObject::connect(notifier_.get(), &QSocketNotifier::activated, notifier_.get(),
                     [this] { pump(xcb_poll_for_event); });
    // Waiting for a reply queues the events before it without waking the descriptor again.
    QObject::connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::aboutToBlock, notifier_.get(),
                     [this] { pump(xcb_poll_for_queued_event); });
}

void X11Connection::pump(Poll poll) {
    if (pumping_ || isLost_) {
        return;
    }
    pumping_ = true;
    while (deliver(poll)) {
        drained.emit();
    }
    polled.emit();
    xcb_flush(connection_);
    pumping_ = false;
    if (xcb_connection_has_error(connection_) != 0) {
        isLost_ = true;
        notifier_->setEnabled(false);
        lost.emit();
    }
}

bool X11Connection::deliver(Poll poll) {
    bool any = false;
    while (const X11Message<xcb_generic_event_t> message{poll(connection_)}) {
        // Errors tell of windows that went away between two requests, which is their ordinary end. What another
        // client sent in the server's name is not to be believed.
        if (message->response_type != 0 && (message->response_type & sentByClient) == 0) {
            forgetDestroyed(*message);
            event.emit(*message);
        }
        any = true;
    }
    return any;
}

void X11Connection::forgetDestroyed(const xcb_generic_event_t& message) {
    if (message.response_type == XCB_DESTROY_NOTIFY) {
        selected_.erase(reinterpret_cast<const xcb_destroy_notify_event_t&>(message).window);
    }
}

} // namespace ambrel
