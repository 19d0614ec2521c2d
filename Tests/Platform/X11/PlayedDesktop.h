#pragma once

#include "Platform/Linux/X11Connection.h"
#include "Platform/RunningApplication.h"

#include <functional>
#include <string>
#include <vector>

#include <QProcess>

namespace ambrel {

/// Runs the event loop until `holds`; false if it doesn't within some seconds.
[[nodiscard]] bool waitUntil(const std::function<bool()>& holds);

/// Another process's X client: the sample program, driven by its commands.
class PlayedClient {
public:
    explicit PlayedClient(const QStringList& arguments = {});
    ~PlayedClient();

    [[nodiscard]] ProcessId pid() const { return static_cast<ProcessId>(process_.processId()); }
    /// Opens a window by one of the program's verbs, and waits until the server has it.
    xcb_window_t open(const char* verb = "open");
    void command(const QByteArray& line);
    void kill();

private:
    QProcess process_;
};

/// A window manager that manages nothing and says what the test wants to be said.
class PlayedWindowManager {
public:
    PlayedWindowManager();

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
    /// Claims in the server's name that `window` was destroyed.
    void forgeDestruction(xcb_window_t window);

    [[nodiscard]] xcb_window_t root() const { return connection_->root(); }

private:
    void sync();

    std::unique_ptr<X11Connection> connection_;
    xcb_window_t check_ = XCB_WINDOW_NONE;
};

} // namespace ambrel
