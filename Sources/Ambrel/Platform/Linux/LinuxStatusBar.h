#pragma once

#include "Platform/Linux/X11StatusPlaces.h"

#include <functional>

namespace ambrel {

class MainQueue;
class X11TraySelection;

/// What the items of the tray stand on; all must outlive them.
struct TrayServices {
    X11Connection& connection;
    X11TraySelection& traySelection;
    const WindowServer& windowServer;
    MainQueue& queue;
    /// Asked where a tray tells nothing of its colours.
    std::function<bool()> isPanelDark;
};

/// The tray of the desktop: StatusNotifierItem where there is a watcher for these, XEmbed where there is none.
class LinuxStatusBar final : public StatusBar {
public:
    explicit LinuxStatusBar(TrayServices services) : services_(std::move(services)) {}

    [[nodiscard]] std::shared_ptr<StatusItem> makeItem(std::string identifier, std::string title) override;

    /// The desktop's colours have changed.
    Signal<> panelDidChange;

private:
    TrayServices services_;
};

} // namespace ambrel
