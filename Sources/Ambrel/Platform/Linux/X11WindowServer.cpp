#include "Platform/Linux/X11WindowServer.h"

#include "Platform/Linux/X11ClientSearch.h"
#include "Platform/Linux/X11WindowMirror.h"
#include "Platform/Linux/X11WindowQuery.h"

#include <algorithm>
#include <limits>
#include <unordered_map>
#include <utility>

#include <xcb/randr.h>

namespace ambrel {

namespace {

constexpr int desktopLayer = -1;
constexpr int applicationLayer = 0;
constexpr int panelLayer = 20;
constexpr int overlayLayer = 101;
constexpr auto opaque = std::numeric_limits<std::uint32_t>::max();

int layerOfKind(WindowKind kind) {
    switch (kind) {
    case WindowKind::panel:
        return panelLayer;
    case WindowKind::desktop:
        return desktopLayer;
    case WindowKind::overlay:
        return overlayLayer;
    default:
        return applicationLayer;
    }
}

std::optional<ProcessId> likelyOwner(const WindowOwnership& ownership) {
    return ownership.process || ownership.suspects.empty() ? ownership.process : ownership.suspects.front();
}

} // namespace

struct X11WindowServer::Details {
    std::optional<ProcessId> owner;
    std::optional<std::uint32_t> opacity;
    std::optional<WindowKind> kind; ///< absent for a window that is gone
};

/// A read of what is asked about one window on the screen, be it a frame or a client.
class X11WindowServer::DetailQuery {
public:
    DetailQuery(X11Connection& connection, xcb_window_t window)
        : owner_(connection, window), opacity_(connection, window, connection.atom(X11Atom::netWmWindowOpacity), 4),
          presentation_(connection, window) {}

    /// Call it exactly once.
    [[nodiscard]] Details take() const {
        const auto shown = presentation_.take();
        return {owner_.take(), opacity_.take().word(),
                shown ? std::optional(windowKind(shown->presentation)) : std::nullopt};
    }

private:
    X11OwnerQuery owner_;
    X11PropertyRequest opacity_;
    X11PresentationQuery presentation_;
};

X11WindowServer::X11WindowServer(X11Connection& connection, const X11WindowMirror& mirror)
    : connection_(connection), mirror_(mirror) {}

std::optional<std::vector<WindowInfo>> X11WindowServer::onScreenWindows(ProcessId owner) const {
    const auto tops = visibleX11Tops(connection_, [&](xcb_window_t top) { return belongsToAnother(top, owner); });
    if (!tops) {
        return std::nullopt;
    }
    // Asked before the search, whose first exchange with the server then brings these answers as well.
    std::vector<xcb_window_t> ids;
    std::vector<DetailQuery> ofTops;
    for (const auto& top : *tops) {
        ids.push_back(top.window);
        ofTops.emplace_back(connection_, top.window);
    }
    const auto clients = findX11Clients(connection_, mirror_, ids);
    std::unordered_map<xcb_window_t, DetailQuery> ofFramed;
    for (const auto& [top, client] : clients) {
        if (client != XCB_WINDOW_NONE && client != top) {
            ofFramed.emplace(top, DetailQuery(connection_, client));
        }
    }
    std::vector<WindowInfo> list;
    for (std::size_t index = 0; index < ids.size(); ++index) {
        const auto& top = (*tops)[index];
        const Details ofTop = ofTops[index].take();
        const auto framed = ofFramed.find(top.window);
        list.push_back(
            info(top, clients.at(top.window), ofTop, framed != ofFramed.end() ? framed->second.take() : ofTop));
    }
    std::erase_if(list, [owner](const WindowInfo& window) { return window.ownerPID && window.ownerPID != owner; });
    return list;
}

WindowInfo X11WindowServer::info(const X11Top& top, xcb_window_t client, const Details& ofTop,
                                 const Details& ofClient) const {
    const auto* const known = mirror_.find(client);
    return {.ownerPID = known != nullptr ? likelyOwner(known->ownership) : ofClient.owner,
            .layer = layer(top, client),
            .alpha = static_cast<double>(ofClient.opacity.value_or(ofTop.opacity.value_or(opaque))) / opaque,
            .bounds = top.bounds,
            .kind = ofClient.kind};
}

/// A question about one application must not grow with the number of the others.
bool X11WindowServer::belongsToAnother(xcb_window_t top, ProcessId owner) const {
    const auto* const known = mirror_.findByTop(top);
    return known != nullptr && known->ownership.process && known->ownership.process != owner;
}

int X11WindowServer::layer(const X11Top& top, xcb_window_t client) const {
    if (const auto* const known = mirror_.find(client)) {
        return layerOfKind(known->window.kind);
    }
    return client == XCB_WINDOW_NONE && top.overrideRedirect ? overlayLayer : applicationLayer;
}

std::optional<std::vector<Rect>> X11WindowServer::onlineDisplays(std::size_t limit) const {
    auto displays = connection_.hasMonitors() ? monitors() : std::nullopt;
    if (!displays || displays->empty()) {
        const auto screen = screenBounds();
        displays = screen ? std::optional(std::vector{*screen}) : std::nullopt;
    }
    if (displays && displays->size() > limit) {
        displays->resize(limit);
    }
    return displays;
}

std::optional<std::vector<Rect>> X11WindowServer::monitors() const {
    auto* const raw = connection_.raw();
    const X11Message<xcb_randr_get_monitors_reply_t> reply(
        xcb_randr_get_monitors_reply(raw, xcb_randr_get_monitors(raw, connection_.root(), 1), nullptr));
    if (!reply) {
        return std::nullopt;
    }
    std::vector<Rect> rects;
    for (auto all = xcb_randr_get_monitors_monitors_iterator(reply.get()); all.rem > 0;
         xcb_randr_monitor_info_next(&all)) {
        rects.push_back({static_cast<double>(all.data->x), static_cast<double>(all.data->y),
                         static_cast<double>(all.data->width), static_cast<double>(all.data->height)});
    }
    return rects;
}

std::optional<Rect> X11WindowServer::screenBounds() const {
    auto* const raw = connection_.raw();
    return boundsOf(X11Message<xcb_get_geometry_reply_t>(
        xcb_get_geometry_reply(raw, xcb_get_geometry(raw, connection_.root()), nullptr)));
}

} // namespace ambrel
