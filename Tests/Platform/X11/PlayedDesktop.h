#pragma once

#include "Platform/Linux/X11Connection.h"

#include <memory>
#include <string>
#include <vector>

namespace ambrel {

/// A connection to the private server.
[[nodiscard]] std::unique_ptr<X11Connection> connect();
/// Returns when the server has done what `connection` has asked for.
void sync(X11Connection& connection);

/// A window manager that manages nothing and says what the test wants to be said.
class PlayedWindowManager {
public:
    /// Names a check window of its own and what it supports.
    void announce();
    /// Destroys the check window.
    void die();
    void publish(const std::vector<xcb_window_t>& list);
    /// Publishes a text where a list should be.
    void publishText(const std::string& text);
    void setProperty(xcb_window_t window, xcb_atom_t property, xcb_atom_t type, int format, const std::string& bytes);
    void setWords(xcb_window_t window, X11Atom property, xcb_atom_t type, const std::vector<std::uint32_t>& words);
    void removeProperty(xcb_window_t window, X11Atom property);
    /// Puts `window` into a frame on the screen, of this size, and returns the frame.
    xcb_window_t frame(xcb_window_t window, std::uint16_t width, std::uint16_t height);
    /// Claims in the server's name that `window` was destroyed.
    void forgeDestruction(xcb_window_t window);

    [[nodiscard]] xcb_window_t root() const { return connection_->root(); }

private:
    std::unique_ptr<X11Connection> connection_ = connect();
    xcb_window_t check_ = XCB_WINDOW_NONE;
};

} // namespace ambrel
