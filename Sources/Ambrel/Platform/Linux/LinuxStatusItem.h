#pragma once

#include "Platform/Linux/LinuxStatusBar.h"
#include "Platform/Linux/SniItem.h"
#include "Platform/Linux/X11TrayIcon.h"

#include <memory>
#include <optional>
#include <string>

namespace ambrel {

/// One item in whichever tray there is, never in two at once. Hidden, it is in none: many trays show passive items too.
class LinuxStatusItem final : public StatusItem {
public:
    LinuxStatusItem(const TrayServices& services, Signal<>& panelDidChange, std::string identifier, std::string title);

    void setImage(IconPicture picture) override;
    void setTint(std::optional<IconTint> tint) override;
    void setMenu(std::vector<StatusMenuEntry> entries) override;
    void setVisible(bool visible) override;
    [[nodiscard]] bool isVisible() const override { return bus_ != nullptr; }
    [[nodiscard]] StatusItemPlace place() const override;

private:
    void appear();
    void disappear();
    void watcherChanged();
    void activated(int x, int y);
    void show();

    TrayServices services_;
    X11StatusPlaces places_;
    std::string identifier_;
    std::string title_;
    IconLook look_;
    std::vector<StatusMenuEntry> menu_;
    X11TrayIcon embedded_;
    std::unique_ptr<SniItem> bus_; ///< null while hidden
    std::optional<StatusItemPlace> clickedAt_;
    Subscription panelObserver_;
    Subscription embeddedClicks_;
    Subscription watcherObserver_;
    Subscription busClicks_;
};

} // namespace ambrel
