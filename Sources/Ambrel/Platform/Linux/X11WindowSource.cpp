#include "Platform/Linux/X11WindowSource.h"

#include "Platform/Linux/X11ClientSearch.h"

#include <array>
#include <utility>

#include <sys/utsname.h>

namespace ambrel {

namespace {

constexpr std::uint32_t sourceIsPager = 2;
constexpr std::uint32_t iconicState = 3;
constexpr int longestParentChain = 16;

std::string hostName() {
    utsname names{};
    return uname(&names) == 0 ? names.nodename : "";
}

/// Watched before anything is read, so that no change is missed.
X11Connection& watched(X11Connection& connection) {
    connection.selectEvents(connection.root(), XCB_EVENT_MASK_PROPERTY_CHANGE);
    return connection;
}

} // namespace

X11WindowSource::X11WindowSource(X11Connection& connection, MainQueue& queue)
    : connection_(watched(connection)), manager_(connection, queue), mirror_(connection, hostName()) {
    subscriptions_.push_back(connection_.event.subscribe([this](const auto& event) { handle(event); }));
    subscriptions_.push_back(connection_.drained.subscribe([this] { update(); }));
    subscriptions_.push_back(manager_.trustDidChange.subscribe([this](bool trusted) { trustChanged(trusted); }));
    update();
}

WindowFacts X11WindowSource::facts(WindowId window) const {
    const auto* const known = mirror_.find(window);
    return known != nullptr ? known->facts : WindowFacts{};
}

bool X11WindowSource::confirmOwner(WindowId window, ProcessId pid) const {
    return X11OwnerQuery(connection_, window).take() == pid;
}

void X11WindowSource::close(WindowId window) {
    connection_.sendToRoot(window, X11Atom::netCloseWindow, std::array{std::uint32_t(XCB_CURRENT_TIME), sourceIsPager});
}

void X11WindowSource::minimize(WindowId window) {
    connection_.sendToRoot(window, X11Atom::wmChangeState, std::array{iconicState});
}

void X11WindowSource::handle(const xcb_generic_event_t& event) {
    manager_.handle(event);
    if (event.response_type == XCB_PROPERTY_NOTIFY) {
        handleProperty(reinterpret_cast<const xcb_property_notify_event_t&>(event));
    } else if (event.response_type == XCB_DESTROY_NOTIFY) {
        mirror_.noteDestroyed(reinterpret_cast<const xcb_destroy_notify_event_t&>(event).window);
    } else if (event.response_type == XCB_REPARENT_NOTIFY) {
        mirror_.noteReparented(reinterpret_cast<const xcb_reparent_notify_event_t&>(event).window);
    }
}

void X11WindowSource::handleProperty(const xcb_property_notify_event_t& property) {
    if (property.window != connection_.root()) {
        mirror_.noteProperty(property.window, property.atom);
    } else if (property.atom == connection_.atom(X11Atom::netClientList)) {
        listChanged_ = true;
    } else if (property.atom == connection_.atom(X11Atom::netActiveWindow)) {
        activeChanged_ = true;
    }
}

void X11WindowSource::update() {
    emitChanges();
    manager_.update();
    mirror_.setHiddenSupported(manager_.supportsHiddenState());
    if (manager_.isTrusted() && manager_.hasPublished() && std::exchange(listChanged_, false)) {
        readClientList();
    }
    if (manager_.isTrusted()) {
        mirror_.refresh();
        emitChanges();
        readActiveWindow();
        // While nobody waits for it, so that a question about what is on the screen need not.
        placeX11Clients(connection_, mirror_);
    }
}

void X11WindowSource::readClientList() {
    constexpr std::uint32_t usualLimit = 16 * 1024;
    constexpr std::uint32_t hardLimit = 4 * 1024 * 1024;
    const auto atom = connection_.atom(X11Atom::netClientList);
    auto list = X11PropertyRequest(connection_, connection_.root(), atom, usualLimit).take();
    if (list.exists() && !list.isComplete()) {
        list = X11PropertyRequest(connection_, connection_.root(), atom, hardLimit).take();
    }
    if (list.isAbsent() || (list.isComplete() && list.isWords())) {
        mirror_.setClientList(list.words());
    } else {
        manager_.lose();
    }
}

void X11WindowSource::emitChanges() {
    for (const auto& change : mirror_.takeChanges()) {
        didChange.emit(change);
    }
}

void X11WindowSource::readActiveWindow() {
    const bool asked = std::exchange(activeChanged_, false);
    if (asked) {
        const auto atom = connection_.atom(X11Atom::netActiveWindow);
        activeWindow_ = X11PropertyRequest(connection_, connection_.root(), atom, 4).take().word().value_or(0);
    }
    const auto process = findActiveProcess();
    if (asked || process != activeProcess_) {
        activeProcess_ = process;
        activeDidChange.emit();
    }
}

std::optional<ProcessId> X11WindowSource::findActiveProcess() const {
    const auto* window = mirror_.find(activeWindow_);
    for (int step = 0; window != nullptr && window->transientFor && step < longestParentChain; ++step) {
        const auto* const parent = mirror_.find(*window->transientFor);
        if (parent == nullptr || !parent->ownership.process) {
            break;
        }
        window = parent;
    }
    return window != nullptr ? window->ownership.process : std::nullopt;
}

void X11WindowSource::trustChanged(bool trusted) {
    if (trusted) {
        listChanged_ = true;
        activeChanged_ = true;
        update();
    }
    // The list may have turned out to be unreadable in the meantime.
    if (trusted == manager_.isTrusted()) {
        readableDidChange.emit(trusted);
    }
}

} // namespace ambrel
