#include "Platform/Linux/X11WindowQuery.h"

#include <limits>

namespace ambrel {

namespace {

constexpr std::uint32_t classLimit = 1024;
constexpr std::uint32_t listLimit = 4096;

std::optional<ProcessId> toPid(std::optional<std::uint32_t> word) {
    const bool valid = word && *word > 0 && *word <= std::numeric_limits<ProcessId>::max();
    return valid ? std::optional(static_cast<ProcessId>(*word)) : std::nullopt;
}

} // namespace

X11OwnerQuery::X11OwnerQuery(X11Connection& connection, xcb_window_t window) : connection_(connection.raw()) {
    if (connection.hasResourceExtension()) {
        const xcb_res_client_id_spec_t spec{window, XCB_RES_CLIENT_ID_MASK_LOCAL_CLIENT_PID};
        cookie_ = xcb_res_query_client_ids(connection_, 1, &spec);
    }
}

std::optional<ProcessId> X11OwnerQuery::take() const {
    if (!cookie_) {
        return std::nullopt;
    }
    const X11Message<xcb_res_query_client_ids_reply_t> reply(
        xcb_res_query_client_ids_reply(connection_, *cookie_, nullptr));
    if (!reply) {
        return std::nullopt;
    }
    for (auto ids = xcb_res_query_client_ids_ids_iterator(reply.get()); ids.rem > 0;
         xcb_res_client_id_value_next(&ids)) {
        if ((ids.data->spec.mask & XCB_RES_CLIENT_ID_MASK_LOCAL_CLIENT_PID) != 0 && ids.data->length >= 4) {
            return toPid(*xcb_res_client_id_value_value(ids.data));
        }
    }
    return std::nullopt;
}

X11PresentationQuery::X11PresentationQuery(X11Connection& connection, xcb_window_t window)
    : connection_(&connection), attributes_(xcb_get_window_attributes(connection.raw(), window)),
      types_(connection, window, connection.atom(X11Atom::netWmWindowType), listLimit),
      states_(connection, window, connection.atom(X11Atom::netWmState), listLimit),
      wmState_(connection, window, connection.atom(X11Atom::wmState), listLimit),
      transientFor_(connection, window, XCB_ATOM_WM_TRANSIENT_FOR, listLimit) {}

std::optional<X11PresentationReading> X11PresentationQuery::take() const {
    const X11Message<xcb_get_window_attributes_reply_t> attributes(
        xcb_get_window_attributes_reply(connection_->raw(), attributes_, nullptr));
    X11PresentationReading reading;
    reading.presentation.types = connection_->names(types_.take().words());
    reading.presentation.states = connection_->names(states_.take().words());
    reading.presentation.wmState = wmState_.take().word();
    const auto transient = transientFor_.take();
    reading.presentation.hasTransientParent = transient.exists();
    reading.transientFor = transient.word();
    if (!attributes) {
        return std::nullopt;
    }
    reading.presentation.overrideRedirect = attributes->override_redirect != 0;
    return reading;
}

X11IdentityQuery::X11IdentityQuery(X11Connection& connection, xcb_window_t window)
    : owner_(connection, window), pid_(connection, window, connection.atom(X11Atom::netWmPid), listLimit),
      machine_(connection, window, connection.atom(X11Atom::wmClientMachine), listLimit),
      wmClass_(connection, window, XCB_ATOM_WM_CLASS, classLimit),
      applicationId_(connection, window, connection.atom(X11Atom::gtkApplicationId)),
      busName_(connection, window, connection.atom(X11Atom::gtkUniqueBusName)),
      objectPath_(connection, window, connection.atom(X11Atom::gtkApplicationObjectPath)) {}

X11IdentityReading X11IdentityQuery::take() const {
    X11IdentityReading reading;
    reading.claims = {.serverPid = owner_.take(), .claimedPid = toPid(pid_.take().word()), .clientMachine = {}};
    reading.claims.clientMachine = machine_.take().text();
    const auto classes = wmClass_.take().texts();
    reading.facts.identity.wmClassInstance = !classes.empty() ? classes[0] : std::string();
    reading.facts.identity.wmClassName = classes.size() > 1 ? classes[1] : std::string();
    reading.facts.identity.gtkApplicationId = applicationId_.take().text();
    const auto busName = busName_.take().text();
    const auto objectPath = objectPath_.take().text();
    if (!busName.empty() && !objectPath.empty()) {
        reading.facts.quitAction = QuitActionAddress{busName, objectPath};
    }
    return reading;
}

std::optional<Rect> boundsOf(const X11Message<xcb_get_geometry_reply_t>& geometry) {
    if (!geometry) {
        return std::nullopt;
    }
    const int borders = 2 * geometry->border_width;
    return Rect{.x = static_cast<double>(geometry->x),
                .y = static_cast<double>(geometry->y),
                .width = static_cast<double>(geometry->width + borders),
                .height = static_cast<double>(geometry->height + borders)};
}

std::optional<std::vector<X11Top>> visibleX11Tops(X11Connection& connection,
                                                  const std::function<bool(xcb_window_t)>& isLeftOut) {
    auto* const raw = connection.raw();
    const X11Message<xcb_query_tree_reply_t> tree(
        xcb_query_tree_reply(raw, xcb_query_tree(raw, connection.root()), nullptr));
    if (!tree) {
        return std::nullopt;
    }
    std::vector<xcb_window_t> children(xcb_query_tree_children(tree.get()),
                                       xcb_query_tree_children(tree.get()) +
                                           xcb_query_tree_children_length(tree.get()));
    std::erase_if(children, isLeftOut);
    std::vector<std::pair<xcb_get_window_attributes_cookie_t, xcb_get_geometry_cookie_t>> cookies;
    for (const auto child : children) {
        cookies.emplace_back(xcb_get_window_attributes(raw, child), xcb_get_geometry(raw, child));
    }
    std::vector<X11Top> tops;
    for (std::size_t index = 0; index < children.size(); ++index) {
        const X11Message<xcb_get_window_attributes_reply_t> attributes(
            xcb_get_window_attributes_reply(raw, cookies[index].first, nullptr));
        const X11Message<xcb_get_geometry_reply_t> geometry(
            xcb_get_geometry_reply(raw, cookies[index].second, nullptr));
        if (attributes && attributes->map_state == XCB_MAP_STATE_VIEWABLE &&
            attributes->_class == XCB_WINDOW_CLASS_INPUT_OUTPUT) {
            tops.push_back({children[index], attributes->override_redirect != 0, boundsOf(geometry)});
        }
    }
    return tops;
}

} // namespace ambrel
