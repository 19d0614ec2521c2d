#pragma once

#include "Options.h"

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include <xcb/xcb.h>

namespace ambrel::sample {

/// The X requests the application needs, each sent at once.
class XDisplay {
public:
    XDisplay();

    [[nodiscard]] bool isConnected() const;
    [[nodiscard]] xcb_connection_t* connection() const { return connection_.get(); }
    [[nodiscard]] xcb_atom_t atom(const std::string& name);

    /// Created with all its properties, not yet mapped.
    [[nodiscard]] xcb_window_t create(const Options& options, bool isDialog = false, xcb_window_t parent = XCB_NONE);
    /// `type` is the end of an atom's name, like "DOCK".
    void setType(xcb_window_t window, const std::string& type);
    void map(xcb_window_t window);
    void destroy(xcb_window_t window);
    /// Unmapped as ICCCM 4.1.4 wants it, so that a window manager lets go of the window.
    void withdraw(xcb_window_t window);
    void minimise(xcb_window_t window);
    /// Asks the window manager to close the window, as a pager would.
    void requestClose(xcb_window_t window);
    /// XCB_NONE if the selection has no owner.
    [[nodiscard]] xcb_window_t selectionOwner(const std::string& selection);
    /// A small window for a tray to take.
    [[nodiscard]] xcb_window_t createIcon();
    void sendMessage(xcb_window_t window, const std::string& type, const std::vector<std::uint32_t>& data);
    /// DestroyNotify of another client's window will be reported here.
    void watch(xcb_window_t window);
    /// Returns once the server has answered.
    void roundTrip();

private:
    void setText(xcb_window_t window, const std::string& property, xcb_atom_t type, std::string_view text);
    void setNumber(xcb_window_t window, const std::string& property, xcb_atom_t type, std::uint32_t value);
    void send(xcb_window_t receiver, std::uint32_t mask, xcb_window_t window, const std::string& type,
              const std::vector<std::uint32_t>& data);

    std::unique_ptr<xcb_connection_t, void (*)(xcb_connection_t*)> connection_;
    xcb_window_t root_ = XCB_NONE;
    std::map<std::string, xcb_atom_t> atoms_;
};

} // namespace ambrel::sample
