#include "Platform/Linux/X11TrayIcon.h"

#include "Platform/Linux/X11Property.h"

#include <algorithm>
#include <array>
#include <utility>

namespace ambrel {

namespace {

constexpr std::uint32_t requestDock = 0;
constexpr std::uint32_t uprightTray = 1;
constexpr std::uint32_t xembedVersion = 0;
constexpr std::uint32_t xembedMapped = 1;
constexpr int firstSize = 22;
constexpr int smallestSize = 16;
constexpr int largestSize = 64;
constexpr std::uint32_t iconEvents = XCB_EVENT_MASK_EXPOSURE | XCB_EVENT_MASK_STRUCTURE_NOTIFY |
                                     XCB_EVENT_MASK_BUTTON_PRESS | XCB_EVENT_MASK_BUTTON_RELEASE;

std::uint8_t upperByte(std::uint32_t word) {
    return static_cast<std::uint8_t>(word >> 8);
}

void setProperty(X11Connection& connection, xcb_window_t window, xcb_atom_t name, xcb_atom_t type,
                 const std::string& value) {
    xcb_change_property(connection.raw(), XCB_PROP_MODE_REPLACE, window, name, type, 8,
                        static_cast<std::uint32_t>(value.size()), value.data());
}

} // namespace

X11TrayIcon::X11TrayIcon(X11Connection& connection, X11TraySelection& selection, std::function<bool()> isPanelDark,
                         std::string identifier, std::string title)
    : connection_(connection), selection_(selection), isPanelDark_(std::move(isPanelDark)),
      identifier_(std::move(identifier)), title_(std::move(title)), painter_(connection) {
    selectionObserver_ = selection_.didChange.subscribe([this] {
        undock();
        dock();
    });
    events_ = connection_.event.subscribe([this](const auto& event) { handle(event); });
}

X11TrayIcon::~X11TrayIcon() {
    undock();
}

void X11TrayIcon::setWanted(bool wanted) {
    if (std::exchange(isWanted_, wanted) == wanted) {
        return;
    }
    wanted ? dock() : undock();
}

void X11TrayIcon::setLook(IconLook look) {
    look_ = std::move(look);
    draw();
}

void X11TrayIcon::dock() {
    tray_ = isWanted_ ? selection_.owner() : static_cast<xcb_window_t>(XCB_WINDOW_NONE);
    if (tray_ == XCB_WINDOW_NONE) {
        return;
    }
    connection_.selectEvents(tray_, XCB_EVENT_MASK_PROPERTY_CHANGE, X11Listener::statusItem);
    readColours();
    makeWindow();
    xcb_client_message_event_t message{};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = tray_;
    message.type = connection_.atom(X11Atom::netSystemTrayOpcode);
    message.data.data32[0] = XCB_CURRENT_TIME;
    message.data.data32[1] = requestDock;
    message.data.data32[2] = window_;
    xcb_send_event(connection_.raw(), 0, tray_, XCB_EVENT_MASK_NO_EVENT, reinterpret_cast<const char*>(&message));
    xcb_flush(connection_.raw());
}

void X11TrayIcon::undock() {
    if (const auto tray = std::exchange(tray_, XCB_WINDOW_NONE); tray != XCB_WINDOW_NONE) {
        connection_.selectEvents(tray, XCB_EVENT_MASK_NO_EVENT, X11Listener::statusItem);
    }
    if (const auto window = std::exchange(window_, XCB_WINDOW_NONE); window != XCB_WINDOW_NONE) {
        xcb_destroy_window(connection_.raw(), window);
        xcb_flush(connection_.raw());
    }
    isDocked_ = false;
    background_.reset();
}

void X11TrayIcon::makeWindow() {
    const X11PropertyRequest visual(connection_, tray_, connection_.atom(X11Atom::netSystemTrayVisual), 4);
    window_ = painter_.makeWindow(visual.take().word().value_or(0), firstSize, iconEvents);
    width_ = height_ = firstSize;
    side_ = 0;
    askForRoom(firstSize);
    const X11PropertyRequest orientation(connection_, tray_, connection_.atom(X11Atom::netSystemTrayOrientation), 4);
    isVertical_ = orientation.take().word() == uprightTray;
    describeWindow();
}

void X11TrayIcon::describeWindow() const {
    const std::array<std::uint32_t, 2> info{xembedVersion, xembedMapped};
    const auto infoAtom = connection_.atom(X11Atom::xembedInfo);
    xcb_change_property(connection_.raw(), XCB_PROP_MODE_REPLACE, window_, infoAtom, infoAtom, 32, info.size(),
                        info.data());
    setProperty(connection_, window_, XCB_ATOM_WM_CLASS, XCB_ATOM_STRING, identifier_ + '\0' + title_ + '\0');
    setProperty(connection_, window_, XCB_ATOM_WM_NAME, XCB_ATOM_STRING, title_);
    setProperty(connection_, window_, connection_.atom(X11Atom::netWmName), connection_.atom(X11Atom::utf8String),
                title_);
}

void X11TrayIcon::askForRoom(int side) {
    if (std::exchange(side_, side) == side) {
        return;
    }
    constexpr std::uint32_t minimumSize = 1U << 4;
    std::array<std::uint32_t, 18> hints{minimumSize};
    hints[5] = hints[6] = static_cast<std::uint32_t>(side);
    xcb_change_property(connection_.raw(), XCB_PROP_MODE_REPLACE, window_, XCB_ATOM_WM_NORMAL_HINTS,
                        XCB_ATOM_WM_SIZE_HINTS, 32, hints.size(), hints.data());
}

void X11TrayIcon::handle(const xcb_generic_event_t& event) {
    switch (event.response_type) {
    case XCB_REPARENT_NOTIFY:
        return handleReparent(reinterpret_cast<const xcb_reparent_notify_event_t&>(event));
    case XCB_EXPOSE:
        return handleExpose(reinterpret_cast<const xcb_expose_event_t&>(event));
    case XCB_BUTTON_RELEASE:
        return handleRelease(reinterpret_cast<const xcb_button_release_event_t&>(event));
    case XCB_CONFIGURE_NOTIFY:
        return handleConfigure(reinterpret_cast<const xcb_configure_notify_event_t&>(event));
    case XCB_DESTROY_NOTIFY:
        // A tray that ends may take the windows in it along.
        if (reinterpret_cast<const xcb_destroy_notify_event_t&>(event).window == window_) {
            window_ = XCB_WINDOW_NONE;
            isDocked_ = false;
        }
        return;
    case XCB_PROPERTY_NOTIFY:
        if (const auto& notify = reinterpret_cast<const xcb_property_notify_event_t&>(event);
            notify.window == tray_ && notify.atom == connection_.atom(X11Atom::netSystemTrayColors)) {
            readColours();
            draw();
        }
        return;
    default:
        return;
    }
}

void X11TrayIcon::handleReparent(const xcb_reparent_notify_event_t& event) {
    if (window_ == XCB_WINDOW_NONE || event.window != window_) {
        return;
    }
    if (event.parent != connection_.root()) {
        isDocked_ = true;
    } else if (isDocked_) {
        // Put out by its tray. Another tray makes itself known.
        undock();
    }
}

void X11TrayIcon::handleConfigure(const xcb_configure_notify_event_t& event) {
    if (window_ == XCB_WINDOW_NONE || event.window != window_) {
        return;
    }
    width_ = event.width;
    height_ = event.height;
    if (isDocked_) {
        // Trays set how thick they are, and give an icon the length that it asks for.
        askForRoom(std::clamp(isVertical_ ? width_ : height_, smallestSize, largestSize));
        draw();
    }
}

void X11TrayIcon::handleExpose(const xcb_expose_event_t& event) {
    if (window_ == XCB_WINDOW_NONE || event.window != window_) {
        return;
    }
    // What has just been exposed is sure to be seen, and the server has put the background there.
    if (const auto seen = told_ ? std::nullopt : painter_.backgroundAt(event.x, event.y, window_)) {
        background_ = seen;
    }
    if (event.count == 0) {
        draw();
    }
}

void X11TrayIcon::handleRelease(const xcb_button_release_event_t& event) {
    const bool isInside = event.event_x >= 0 && event.event_y >= 0 && event.event_x < width_ && event.event_y < height_;
    if (window_ != XCB_WINDOW_NONE && event.event == window_ && isInside && event.detail <= XCB_BUTTON_INDEX_3) {
        clicked.emit();
    }
}

void X11TrayIcon::readColours() {
    const auto words =
        X11PropertyRequest(connection_, tray_, connection_.atom(X11Atom::netSystemTrayColors)).take().words();
    told_.reset();
    if (words.size() >= 3) {
        told_ = IconColour{upperByte(words[0]), upperByte(words[1]), upperByte(words[2])};
    }
}

IconColour X11TrayIcon::foreground() const {
    return told_.value_or(foregroundOn(background_ ? isDark(*background_) : isPanelDark_()));
}

void X11TrayIcon::draw() {
    if (isDocked_) {
        painter_.draw(window_, width_, height_, look_, foreground());
    }
}

std::optional<Rect> X11TrayIcon::bounds() const {
    auto* const raw = connection_.raw();
    if (!isDocked_) {
        return std::nullopt;
    }
    const X11Message<xcb_translate_coordinates_reply_t> corner(xcb_translate_coordinates_reply(
        raw, xcb_translate_coordinates(raw, window_, connection_.root(), 0, 0), nullptr));
    if (!corner) {
        return std::nullopt;
    }
    return Rect{static_cast<double>(corner->dst_x), static_cast<double>(corner->dst_y), static_cast<double>(width_),
                static_cast<double>(height_)};
}

} // namespace ambrel
