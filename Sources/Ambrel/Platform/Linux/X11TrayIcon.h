#pragma once

#include "Platform/Linux/IconPaint.h"
#include "Platform/Linux/X11IconPainter.h"
#include "Platform/Linux/X11TraySelection.h"
#include "Platform/WindowServer.h"

#include <functional>
#include <optional>
#include <string>

namespace ambrel {

/// An icon in the XEmbed tray of the screen, in whichever tray is there, as long as it is wanted.
class X11TrayIcon {
public:
    /// All must outlive this object. `isPanelDark` is asked where the tray tells nothing of its colours.
    X11TrayIcon(X11Connection& connection, X11TraySelection& selection, std::function<bool()> isPanelDark,
                std::string identifier, std::string title);
    X11TrayIcon(const X11TrayIcon&) = delete;
    X11TrayIcon& operator=(const X11TrayIcon&) = delete;
    ~X11TrayIcon();

    /// Until it is wanted, and after, there is no window of it.
    void setWanted(bool wanted);
    void setLook(IconLook look);
    /// Draws again, as after a change of the panel's colour.
    void draw();
    /// The place of the icon on the screen; absent while no tray shows it.
    [[nodiscard]] std::optional<Rect> bounds() const;

    Signal<> clicked;

private:
    void dock();
    void undock();
    void makeWindow();
    void describeWindow() const;
    void askForRoom(int side);
    void handle(const xcb_generic_event_t& event);
    void handleReparent(const xcb_reparent_notify_event_t& event);
    void handleConfigure(const xcb_configure_notify_event_t& event);
    void handleExpose(const xcb_expose_event_t& event);
    void handleRelease(const xcb_button_release_event_t& event);
    void readColours();
    [[nodiscard]] IconColour foreground() const;

    X11Connection& connection_;
    X11TraySelection& selection_;
    std::function<bool()> isPanelDark_;
    std::string identifier_;
    std::string title_;
    X11IconPainter painter_;
    IconLook look_;
    bool isWanted_ = false;
    bool isDocked_ = false;
    bool isVertical_ = false;             ///< the tray stands upright
    xcb_window_t tray_ = XCB_WINDOW_NONE; ///< that was asked to take the icon
    xcb_window_t window_ = XCB_WINDOW_NONE;
    int side_ = 0; ///< of the square that the tray was asked for
    int width_ = 0;
    int height_ = 0;
    std::optional<IconColour> told_;       ///< the foreground, in the tray's own words
    std::optional<IconColour> background_; ///< as it was seen
    Subscription selectionObserver_;
    Subscription events_;
};

} // namespace ambrel
