#pragma once

#include "Platform/Linux/WindowSource.h"
#include "Platform/Linux/X11Connection.h"
#include "Platform/Linux/X11WindowManager.h"
#include "Platform/Linux/X11WindowMirror.h"

namespace ambrel {

/// The windows of an X server, as its window manager publishes them.
class X11WindowSource final : public WindowSource {
public:
    /// Reads what is there; the connection delivers what comes after.
    X11WindowSource(X11Connection& connection, MainQueue& queue);

    [[nodiscard]] bool isReadable() const override { return manager_.isTrusted(); }
    [[nodiscard]] std::vector<ProcessId> processes() const override { return mirror_.processes(); }
    [[nodiscard]] std::vector<DesktopWindow> windows(ProcessId pid) const override { return mirror_.windows(pid); }
    [[nodiscard]] WindowFacts facts(WindowId window) const override;
    [[nodiscard]] std::optional<ProcessId> activeProcess() const override { return activeProcess_; }
    [[nodiscard]] bool confirmOwner(WindowId window, ProcessId pid) const override;
    void close(WindowId window) override;
    void minimize(WindowId window) override;

    [[nodiscard]] X11WindowMirror& mirror() { return mirror_; }

private:
    void handle(const xcb_generic_event_t& event);
    void handleProperty(const xcb_property_notify_event_t& property);
    void update();
    void readClientList();
    void emitChanges();
    void readActiveWindow();
    [[nodiscard]] std::optional<ProcessId> findActiveProcess() const;
    void trustChanged(bool trusted);

    X11Connection& connection_;
    X11WindowManager manager_;
    X11WindowMirror mirror_;
    bool listChanged_ = true;
    bool activeChanged_ = true;
    xcb_window_t activeWindow_ = XCB_WINDOW_NONE;
    std::optional<ProcessId> activeProcess_;
    std::vector<Subscription> subscriptions_;
};

} // namespace ambrel
