#pragma once

#include "Core/Lifetime.h"
#include "Core/Logger.h"
#include "UI/StatusBar/FrameAnimation.h"
#include "UI/StatusBar/StatusIcons.h"
#include "UI/Windows.h"

#include <memory>
#include <string>

namespace ambrel {

class AppSettings;
class Platform;
class QuitAll;

/// The program's icon in the tray: tells whether it is paused, opens the dropdown, and acknowledges a Quit All. Main
/// thread only.
class StatusItemController {
public:
    [[nodiscard]] static StatusItemController& shared();

    StatusItemController(Platform& platform, AppSettings& settings, QuitAll& quitAll, Windows& windows,
                         StatusIcons icons = StatusIcons::built());

    /// Makes the item; a second call does nothing.
    void install();
    /// Lets the icon glow in the accent colour for a moment. A later pulse takes over from one that is under way.
    void pulse();
    /// The one Quit All of the hotkey, the dropdown and the menu: asks first where the user wants that.
    void quitAllAction();
    /// Asks in front of a Quit All. Without an item to ask at, it is run at once.
    void showConfirm(bool force);

private:
    void observeSettings();
    void setIcon(bool paused, bool animated);
    void setMenu(bool paused);
    void setTint(double amount);
    void statusButtonClicked();
    void togglePause();
    void dismissAnd(void (Windows::*show)());
    void dismissAndQuitAll();
    void runQuitAll(bool force);
    [[nodiscard]] Windows::DropdownActions actions();
    [[nodiscard]] std::string describeImage() const;

    Platform& platform_;
    AppSettings& settings_;
    QuitAll& quitAll_;
    Windows& windows_;
    StatusIcons icons_;
    std::shared_ptr<StatusItem> item_;
    IconPicture shown_;
    double tintAmount_ = 0;
    FrameAnimation crossfade_;
    FrameAnimation glow_;
    Subscription clickObserver_;
    Subscription hideObserver_;
    Subscription pauseObserver_;
    Logger log_{"ui"};
    Lifetime lifetime_;
};

} // namespace ambrel
