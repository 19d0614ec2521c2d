#include "Platform/Linux/X11WindowServer.h"

#include "Platform/Linux/X11ClientSearch.h"
#include "Platform/Linux/X11WindowMirror.h"
#include "Platform/Linux/X11WindowQuery.h"

#include <algorithm>
#include <limits>
#include <utility>

#include <xcb/randr.h>

namespace ambrel {

namespace {

constexpr int desktopLayer = -1;
constexpr int applicationLayer = 0;
constexpr int panelLayer = 20;
constexpr int overlayLayer = 101;

std::optional<Rect> bounds(const X11Message<xcb_get_geometry_reply_t>& geometry) {
    if (!geometry) {
        return std::nullopt;
    }
    const int borders = 2 * geometry->border_width;
    return Rect{.x = static_cast<double>(geometry->x),
                .y = static_cast<double>(geometry->y),
                .width = static_cast<double>(geometry->width + borders),
                .height = static_cast<double>(geometry->height + borders)};
}

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

/// What is still to be asked about one window on the screen.
class DetailQuery {
public:
    DetailQuery(X11Connection& connection, const X11WindowMirror& mirror, xcb_window_t top, xcb_window_t client)
        : known_(mirror.find(client)), topOpacity_(connection, top, connection.atom(X11Atom::netWmWindowOpacity), 4),
          clientOpacity_(connection, client, connection.atom(X11Atom::netWmWindowOpacity), 4) {
        if (known_ == nullptr) {
            owner_.emplace(connection, client);
        }
    }

    [[nodiscard]] std::optional<ProcessId> takeOwner() const {
        if (owner_) {
            return owner_->take();
        }
        const auto& ownership = known_->ownership;
        return ownership.process || ownership.suspects.empty() ? ownership.process : ownership.suspects.front();
    }

    [[nodiscard]] double takeAlpha() const {
        const auto ofTop = topOpacity_.take().word();
        const auto ofClient = clientOpacity_.take().word();
        constexpr auto opaque = std::numeric_limits<std::uint32_t>::max();
        return static_cast<double>(ofClient.value_or(ofTop.value_or(opaque))) / opaque;
    }

private:
    const X11Window* known_;
    std::optional<X11OwnerQuery> owner_;
    X11PropertyRequest topOpacity_;
    X11PropertyRequest clientOpacity_;
};

} // namespace

X11WindowServer::X11WindowServer(X11Connection& connection, X11WindowMirror& mirror)
    : connection_(connection), mirror_(mirror) {}

std::optional<std::vector<WindowInfo>> X11WindowServer::onScreenWindows(ProcessId owner) const {
    const auto tops = visibleTops(owner);
    if (!tops) {
        return std::nullopt;
    }
    std::vector<xcb_window_t> ids;
    std::transform(tops->begin(), tops->end(), std::back_inserter(ids), [](const Top& top) { return top.window; });
    const auto clients = findX11Clients(connection_, mirror_, ids);
    std::vector<DetailQuery> details;
    for (const auto id : ids) {
        const auto client = clients.at(id);
        details.emplace_back(connection_, mirror_, id, client != XCB_WINDOW_NONE ? client : id);
    }
    std::vector<WindowInfo> list;
    for (std::size_t index = 0; index < ids.size(); ++index) {
        const auto& top = (*tops)[index];
        list.push_back({.ownerPID = details[index].takeOwner(),
                        .layer = layer(top, clients.at(top.window)),
                        .alpha = details[index].takeAlpha(),
                        .bounds = top.bounds});
    }
    return list;
}

std::optional<std::vector<X11WindowServer::Top>> X11WindowServer::visibleTops(ProcessId owner) const {
    auto* const raw = connection_.raw();
    const X11Message<xcb_query_tree_reply_t> tree(
        xcb_query_tree_reply(raw, xcb_query_tree(raw, connection_.root()), nullptr));
    if (!tree) {
        return std::nullopt;
    }
    std::vector<xcb_window_t> children(xcb_query_tree_children(tree.get()),
                                       xcb_query_tree_children(tree.get()) +
                                           xcb_query_tree_children_length(tree.get()));
    std::erase_if(children, [&](xcb_window_t child) { return belongsToAnother(child, owner); });
    std::vector<std::pair<xcb_get_window_attributes_cookie_t, xcb_get_geometry_cookie_t>> cookies;
    for (const auto child : children) {
        cookies.emplace_back(xcb_get_window_attributes(raw, child), xcb_get_geometry(raw, child));
    }
    std::vector<Top> tops;
    for (std::size_t index = 0; index < children.size(); ++index) {
        const X11Message<xcb_get_window_attributes_reply_t> attributes(
            xcb_get_window_attributes_reply(raw, cookies[index].first, nullptr));
        const X11Message<xcb_get_geometry_reply_t> geometry(
            xcb_get_geometry_reply(raw, cookies[index].second, nullptr));
        if (attributes && attributes->map_state == XCB_MAP_STATE_VIEWABLE &&
            attributes->_class == XCB_WINDOW_CLASS_INPUT_OUTPUT) {
            tops.push_back({children[index], attributes->override_redirect != 0, bounds(geometry)});
        }
    }
    return tops;
}

/// A question about one application must not grow with the number of the others.
bool X11WindowServer::belongsToAnother(xcb_window_t top, ProcessId owner) const {
    const auto* const known = mirror_.findByTop(top);
    return known != nullptr && known->ownership.process && known->ownership.process != owner;
}

int X11WindowServer::layer(const Top& top, xcb_window_t client) const {
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
    return bounds(X11Message<xcb_get_geometry_reply_t>(
        xcb_get_geometry_reply(raw, xcb_get_geometry(raw, connection_.root()), nullptr)));
}

} // namespace ambrel
