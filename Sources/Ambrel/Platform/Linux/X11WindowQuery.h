#pragma once

#include "Platform/Linux/WindowOwnership.h"
#include "Platform/Linux/X11Property.h"
#include "Platform/Linux/X11WindowTraits.h"
#include "Platform/WindowServer.h"

#include <functional>
#include <vector>

#include <xcb/res.h>

namespace ambrel {

/// The server's own answer to whose a window is, under way.
class X11OwnerQuery {
public:
    X11OwnerQuery(X11Connection& connection, xcb_window_t window);
    /// Absent for a window that is gone and for a client on another machine. Call it exactly once.
    [[nodiscard]] std::optional<ProcessId> take() const;

private:
    xcb_connection_t* connection_;
    std::optional<xcb_res_query_client_ids_cookie_t> cookie_;
};

struct X11PresentationReading {
    X11Presentation presentation;
    std::optional<xcb_window_t> transientFor;
};

/// A read of what a window shows, under way.
class X11PresentationQuery {
public:
    X11PresentationQuery(X11Connection& connection, xcb_window_t window);
    /// Absent for a window that is gone. Call it exactly once.
    [[nodiscard]] std::optional<X11PresentationReading> take() const;

private:
    X11Connection* connection_;
    xcb_get_window_attributes_cookie_t attributes_;
    X11PropertyRequest types_;
    X11PropertyRequest states_;
    X11PropertyRequest wmState_;
    X11PropertyRequest transientFor_;
};

/// A child of the root that can be seen.
struct X11Top {
    xcb_window_t window;
    bool overrideRedirect;
    std::optional<Rect> bounds;
};

/// The children of the root that can be seen, from the lowest up, without those that `isLeftOut`. Takes two exchanges
/// with the server, however many there are; absent if it does not answer.
[[nodiscard]] std::optional<std::vector<X11Top>> visibleX11Tops(X11Connection& connection,
                                                                const std::function<bool(xcb_window_t)>& isLeftOut);
/// With the borders; absent for a window that is gone.
[[nodiscard]] std::optional<Rect> boundsOf(const X11Message<xcb_get_geometry_reply_t>& geometry);

struct X11IdentityReading {
    OwnershipClaims claims;
    WindowFacts facts;
};

/// A read of whose a window is, under way.
class X11IdentityQuery {
public:
    X11IdentityQuery(X11Connection& connection, xcb_window_t window);
    /// Call it exactly once.
    [[nodiscard]] X11IdentityReading take() const;

private:
    X11OwnerQuery owner_;
    X11PropertyRequest pid_;
    X11PropertyRequest machine_;
    X11PropertyRequest wmClass_;
    X11PropertyRequest applicationId_;
    X11PropertyRequest busName_;
    X11PropertyRequest objectPath_;
};

} // namespace ambrel
