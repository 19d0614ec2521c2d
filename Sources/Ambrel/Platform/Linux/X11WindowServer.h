#pragma once

#include "Platform/Linux/X11Connection.h"
#include "Platform/WindowServer.h"

#include <optional>
#include <vector>

namespace ambrel {

class X11WindowMirror;
struct X11Top;

/// The X server's own view of what is on the screen, asked afresh each time.
class X11WindowServer final : public WindowServer {
public:
    /// Both must outlive this object.
    X11WindowServer(X11Connection& connection, const X11WindowMirror& mirror);

    [[nodiscard]] std::optional<std::vector<WindowInfo>> onScreenWindows(ProcessId owner) const override;
    [[nodiscard]] std::optional<std::vector<Rect>> onlineDisplays(std::size_t limit) const override;

private:
    struct Details;
    class DetailQuery;
    [[nodiscard]] bool belongsToAnother(xcb_window_t top, ProcessId owner) const;
    [[nodiscard]] WindowInfo info(const X11Top& top, xcb_window_t client, const Details& ofTop,
                                  const Details& ofClient) const;
    [[nodiscard]] int layer(const X11Top& top, xcb_window_t client) const;
    [[nodiscard]] std::optional<std::vector<Rect>> monitors() const;
    [[nodiscard]] std::optional<Rect> screenBounds() const;

    X11Connection& connection_;
    const X11WindowMirror& mirror_;
};

} // namespace ambrel
