#pragma once

#include "Core/Clock.h"
#include "Core/Files.h"
#include "Core/Signal.h"
#include "Platform/Linux/X11Atom.h"

#include <array>
#include <cstdlib>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <unordered_map>
#include <variant>
#include <vector>

#include <xcb/xcb.h>

class QSocketNotifier;

namespace ambrel {

struct FreeDeleter {
    void operator()(void* memory) const { std::free(memory); }
};

/// A reply, event or error that libxcb allocated.
template <typename Message> using X11Message = std::unique_ptr<Message, FreeDeleter>;

/// On whose behalf a window's events are asked for.
enum class X11Listener { windows, tray, statusItem, session };
inline constexpr std::size_t x11ListenerCount = 4;

/// Our own connection to the X server, pumped by the event loop.
class X11Connection {
public:
    using Creation = std::variant<std::unique_ptr<X11Connection>, FileFailure>;

    /// Connects to `display`, or to `$DISPLAY` when it is empty. Fails with ETIMEDOUT if the server does not
    /// answer within `timeout`.
    [[nodiscard]] static Creation open(const std::string& display, Seconds timeout);

    X11Connection(const X11Connection&) = delete;
    X11Connection& operator=(const X11Connection&) = delete;
    ~X11Connection();

    [[nodiscard]] xcb_connection_t* raw() const { return connection_; }
    [[nodiscard]] const xcb_screen_t& screen() const { return *screen_; }
    [[nodiscard]] int screenNumber() const { return screenNumber_; }
    [[nodiscard]] xcb_window_t root() const { return screen_->root; }
    [[nodiscard]] xcb_atom_t atom(X11Atom name) const { return atoms_[static_cast<std::size_t>(name)]; }
    /// The known ones among `atoms`, in their order.
    [[nodiscard]] std::vector<X11Atom> names(std::span<const xcb_atom_t> atoms) const;
    [[nodiscard]] bool hasResourceExtension() const { return hasResource_; }
    [[nodiscard]] bool hasMonitors() const { return hasMonitors_; }

    /// Sets the events that `window` sends to us for this listener; what another has asked for is sent too.
    void selectEvents(xcb_window_t window, std::uint32_t mask, X11Listener listener = X11Listener::windows);
    /// Asks the window manager, through the root window, for something about `window`.
    void sendToRoot(xcb_window_t window, X11Atom type, std::span<const std::uint32_t> data);

    /// Starts to deliver events.
    void start();

    Signal<const xcb_generic_event_t&> event;
    /// Every event that has arrived is delivered. Observers may make requests and wait for replies.
    Signal<> drained;
    /// What has arrived was read, be it replies alone: the time to poll for those that nobody waits for.
    Signal<> polled;
    /// The server has gone; emitted once.
    Signal<> lost;

private:
    using Poll = xcb_generic_event_t* (*)(xcb_connection_t*);

    X11Connection(xcb_connection_t* connection, int screen);
    void internAtoms();
    void findExtensions();
    void pump(Poll poll);
    bool deliver(Poll poll);
    void forgetDestroyed(const xcb_generic_event_t& message);

    xcb_connection_t* connection_;
    xcb_screen_t* screen_ = nullptr;
    int screenNumber_;
    std::unordered_map<xcb_window_t, std::array<std::uint32_t, x11ListenerCount>> selected_; ///< by listener
    std::vector<xcb_atom_t> atoms_;
    bool hasResource_ = false;
    bool hasMonitors_ = false;
    bool isLost_ = false;
    bool pumping_ = false;
    std::unique_ptr<QSocketNotifier> notifier_;
};

} // namespace ambrel
