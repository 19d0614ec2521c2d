#pragma once

#include "Platform/Linux/WindowOwnership.h"
#include "Platform/Linux/WindowSource.h"
#include "Platform/Linux/X11WindowQuery.h"

#include <optional>
#include <span>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace ambrel {

/// One window that is, or was, on the window manager's list and still exists.
struct X11Window {
    DesktopWindow window;
    WindowOwnership ownership;
    WindowFacts facts;
    std::optional<xcb_window_t> transientFor;
    /// The child of the root that it is, or that frames it; 0 until somebody has looked for it.
    xcb_window_t top = XCB_WINDOW_NONE;
};

/// Our copy of what the X server knows of the managed windows. What is noted here takes effect at once where no
/// question to the server is needed, and with the next `refresh` otherwise.
class X11WindowMirror {
public:
    X11WindowMirror(X11Connection& connection, std::string hostName);

    void setHiddenSupported(bool supported) { hiddenSupported_ = supported; }

    /// The window manager's list. New windows are read with the next `refresh`.
    void setClientList(std::vector<xcb_window_t> list);
    void noteProperty(xcb_window_t window, xcb_atom_t property);
    void noteDestroyed(xcb_window_t window);
    void noteReparented(xcb_window_t window);
    /// Managed windows whose top has to be looked for, as they are new or have got another parent. Each is given
    /// out once.
    [[nodiscard]] std::vector<xcb_window_t> takeUnplaced();
    /// `top` was found to be, or to frame, `client`.
    void rememberTop(xcb_window_t client, xcb_window_t top);
    /// Reads everything that is new or has changed, all of it in one exchange with the server.
    void refresh();
    /// What has happened to application windows of identified processes since the last call, in order.
    [[nodiscard]] std::vector<WindowChange> takeChanges();

    /// As the window manager gave it, less what has been destroyed since.
    [[nodiscard]] const std::vector<xcb_window_t>& clientList() const { return list_; }
    [[nodiscard]] const X11Window* find(xcb_window_t window) const;
    /// The window that this child of the root is known to be, or to frame.
    [[nodiscard]] const X11Window* findByTop(xcb_window_t top) const;
    [[nodiscard]] std::vector<DesktopWindow> windows(ProcessId pid) const;
    [[nodiscard]] std::vector<ProcessId> processes() const;

private:
    void listed(xcb_window_t id);
    void unlisted(xcb_window_t id);
    void readNew(std::vector<xcb_window_t> ids);
    void readChanged(std::vector<xcb_window_t> ids);
    void insert(xcb_window_t id, const X11PresentationReading& shown, X11IdentityReading identity);
    void present(X11Window& window, const X11PresentationReading& shown);
    void erase(xcb_window_t id);
    void forgetTop(X11Window& window);
    void report(WindowEvent event, const WindowOwnership& ownership, const DesktopWindow& window);

    X11Connection& connection_;
    std::string hostName_;
    ProcessId ownPid_;
    bool hiddenSupported_ = false;
    std::vector<xcb_window_t> list_;
    std::vector<xcb_window_t> unread_;
    std::unordered_set<xcb_window_t> changed_;
    std::unordered_set<xcb_window_t> unplaced_;
    std::unordered_map<xcb_window_t, X11Window> windows_;
    std::unordered_map<xcb_window_t, xcb_window_t> clientsByTop_;
    std::unordered_map<ProcessId, std::vector<xcb_window_t>> ofProcess_;
    std::vector<WindowChange> changes_;
};

} // namespace ambrel
