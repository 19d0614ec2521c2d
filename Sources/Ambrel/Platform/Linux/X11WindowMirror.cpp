#include "Platform/Linux/X11WindowMirror.h"

#include "Platform/Linux/ClientListDifference.h"

#include <algorithm>
#include <utility>

#include <unistd.h>

namespace ambrel {

namespace {

constexpr std::uint32_t clientEvents = XCB_EVENT_MASK_STRUCTURE_NOTIFY | XCB_EVENT_MASK_PROPERTY_CHANGE;

/// Everyone whose windows this one is to be counted among.
std::vector<ProcessId> owners(const WindowOwnership& ownership) {
    return ownership.process ? std::vector{*ownership.process} : ownership.suspects;
}

} // namespace

X11WindowMirror::X11WindowMirror(X11Connection& connection, std::string hostName)
    : connection_(connection), hostName_(std::move(hostName)), ownPid_(getpid()) {}

void X11WindowMirror::setClientList(std::vector<xcb_window_t> list) {
    const auto difference = clientListDifference(list_, list);
    list_ = std::move(list);
    for (const auto id : difference.removed) {
        unlisted(id);
    }
    for (const auto id : difference.added) {
        listed(id);
    }
}

void X11WindowMirror::listed(xcb_window_t id) {
    const auto known = windows_.find(id);
    if (known == windows_.end()) {
        unread_.push_back(id);
        return;
    }
    known->second.window.onDesktop = true;
    changed_.insert(id);
    unplaced_.insert(id);
    report(WindowEvent::appeared, known->second.ownership, known->second.window);
}

void X11WindowMirror::unlisted(xcb_window_t id) {
    std::erase(unread_, id);
    const auto known = windows_.find(id);
    if (known == windows_.end()) {
        return;
    }
    X11Window& window = known->second;
    window.window.onDesktop = false;
    window.window.minimized = false;
    if (window.window.kind == WindowKind::standard) {
        report(WindowEvent::withdrawn, window.ownership, window.window);
    } else {
        connection_.selectEvents(id, XCB_EVENT_MASK_NO_EVENT);
        report(WindowEvent::vanished, window.ownership, window.window);
        erase(id);
    }
}

void X11WindowMirror::noteProperty(xcb_window_t window, xcb_atom_t property) {
    const bool shows = property == connection_.atom(X11Atom::netWmState) ||
                       property == connection_.atom(X11Atom::wmState) ||
                       property == connection_.atom(X11Atom::netWmWindowType) || property == XCB_ATOM_WM_TRANSIENT_FOR;
    if (shows && windows_.contains(window)) {
        changed_.insert(window);
    }
}

void X11WindowMirror::noteDestroyed(xcb_window_t window) {
    // The server may give the same id to another client's window from now on.
    std::erase(list_, window);
    std::erase(unread_, window);
    const auto known = windows_.find(window);
    if (known != windows_.end()) {
        report(WindowEvent::vanished, known->second.ownership, known->second.window);
        erase(window);
    }
}

void X11WindowMirror::noteReparented(xcb_window_t window) {
    if (const auto known = windows_.find(window); known != windows_.end()) {
        forgetTop(known->second);
        unplaced_.insert(window);
    }
}

std::vector<xcb_window_t> X11WindowMirror::takeUnplaced() {
    std::vector<xcb_window_t> clients;
    for (const auto id : std::exchange(unplaced_, {})) {
        // One that is on its way out is not worth a question.
        const auto* const window = find(id);
        if (window != nullptr && window->window.onDesktop && window->top == XCB_WINDOW_NONE) {
            clients.push_back(id);
        }
    }
    return clients;
}

void X11WindowMirror::rememberTop(xcb_window_t client, xcb_window_t top) {
    if (const auto known = windows_.find(client); known != windows_.end()) {
        forgetTop(known->second);
        known->second.top = top;
        clientsByTop_[top] = client;
    }
}

void X11WindowMirror::forgetTop(X11Window& window) {
    const auto known = clientsByTop_.find(std::exchange(window.top, XCB_WINDOW_NONE));
    if (known != clientsByTop_.end() && known->second == window.window.id) {
        clientsByTop_.erase(known);
    }
}

const X11Window* X11WindowMirror::findByTop(xcb_window_t top) const {
    const auto client = clientsByTop_.find(top);
    return client != clientsByTop_.end() ? find(client->second) : nullptr;
}

void X11WindowMirror::refresh() {
    readNew(std::exchange(unread_, {}));
    const auto changed = std::exchange(changed_, {});
    readChanged({changed.begin(), changed.end()});
}

void X11WindowMirror::readNew(std::vector<xcb_window_t> ids) {
    std::vector<std::pair<X11PresentationQuery, X11IdentityQuery>> queries;
    queries.reserve(ids.size());
    for (const auto id : ids) {
        // Before anything is read, so that no change can fall between the reading and the first event.
        connection_.selectEvents(id, clientEvents);
        queries.emplace_back(X11PresentationQuery(connection_, id), X11IdentityQuery(connection_, id));
    }
    for (std::size_t index = 0; index < ids.size(); ++index) {
        const auto shown = queries[index].first.take();
        auto identity = queries[index].second.take();
        if (shown) {
            insert(ids[index], *shown, std::move(identity));
        } else {
            // Gone already. Another client's window may have the same id by the time the list is read again.
            std::erase(list_, ids[index]);
            connection_.selectEvents(ids[index], XCB_EVENT_MASK_NO_EVENT);
        }
    }
}

void X11WindowMirror::readChanged(std::vector<xcb_window_t> ids) {
    std::vector<X11PresentationQuery> queries;
    queries.reserve(ids.size());
    for (const auto id : ids) {
        queries.emplace_back(connection_, id);
    }
    for (std::size_t index = 0; index < ids.size(); ++index) {
        const auto shown = queries[index].take();
        const auto known = windows_.find(ids[index]);
        if (shown && known != windows_.end()) {
            present(known->second, *shown);
        }
    }
}

void X11WindowMirror::insert(xcb_window_t id, const X11PresentationReading& shown, X11IdentityReading identity) {
    X11Window window;
    window.window.id = id;
    window.window.kind = windowKind(shown.presentation);
    window.window.minimized = isMinimized(shown.presentation, hiddenSupported_);
    window.ownership = judgeOwnership(identity.claims, hostName_, readInnermostPid);
    window.window.certain = window.ownership.process.has_value();
    window.facts = std::move(identity.facts);
    window.transientFor = shown.transientFor;
    for (const auto pid : owners(window.ownership)) {
        ofProcess_[pid].push_back(id);
    }
    report(WindowEvent::appeared, window.ownership, window.window);
    windows_.insert_or_assign(id, std::move(window));
    unplaced_.insert(id);
}

void X11WindowMirror::present(X11Window& window, const X11PresentationReading& shown) {
    window.transientFor = shown.transientFor;
    if (!window.window.onDesktop) {
        return;
    }
    const auto before = window.window;
    // An application's window leaves by withdrawal or destruction, whatever type it takes on meanwhile.
    if (const auto kind = windowKind(shown.presentation);
        isApplicationWindow(kind) || !isApplicationWindow(before.kind)) {
        window.window.kind = kind;
    }
    window.window.minimized = isMinimized(shown.presentation, hiddenSupported_);
    if (before.kind != window.window.kind) {
        report(WindowEvent::appeared, window.ownership, window.window);
    } else if (before.minimized != window.window.minimized) {
        const auto event = before.minimized ? WindowEvent::restored : WindowEvent::minimized;
        report(event, window.ownership, window.window);
    }
}

void X11WindowMirror::erase(xcb_window_t id) {
    auto known = windows_.extract(id);
    forgetTop(known.mapped());
    changed_.erase(id);
    for (const auto pid : owners(known.mapped().ownership)) {
        auto& ids = ofProcess_[pid];
        std::erase(ids, id);
        if (ids.empty()) {
            ofProcess_.erase(pid);
        }
    }
}

void X11WindowMirror::report(WindowEvent event, const WindowOwnership& ownership, const DesktopWindow& window) {
    if (ownership.process && *ownership.process != ownPid_ && isApplicationWindow(window.kind)) {
        changes_.push_back({event, *ownership.process, window});
    }
}

std::vector<WindowChange> X11WindowMirror::takeChanges() {
    return std::exchange(changes_, {});
}

const X11Window* X11WindowMirror::find(xcb_window_t window) const {
    const auto known = windows_.find(window);
    return known != windows_.end() ? &known->second : nullptr;
}

std::vector<DesktopWindow> X11WindowMirror::windows(ProcessId pid) const {
    std::vector<DesktopWindow> windows;
    const auto ids = ofProcess_.find(pid);
    if (ids == ofProcess_.end() || pid == ownPid_) {
        return windows;
    }
    for (const auto id : ids->second) {
        const auto& window = windows_.at(id).window;
        if (isApplicationWindow(window.kind)) {
            windows.push_back(window);
        }
    }
    return windows;
}

std::vector<ProcessId> X11WindowMirror::processes() const {
    std::vector<ProcessId> processes;
    for (const auto id : list_) {
        const auto* const window = find(id);
        if (window != nullptr && window->ownership.process && *window->ownership.process != ownPid_ &&
            isApplicationWindow(window->window.kind) &&
            std::find(processes.begin(), processes.end(), *window->ownership.process) == processes.end()) {
            processes.push_back(*window->ownership.process);
        }
    }
    return processes;
}

} // namespace ambrel
