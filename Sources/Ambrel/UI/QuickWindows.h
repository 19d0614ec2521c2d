#pragma once

#include "UI/Gate/AccessibilityGateController.h"
#include "UI/Models/AboutModel.h"
#include "UI/Models/AppearanceGuard.h"
#include "UI/Models/ApplicationChooser.h"
#include "UI/Models/EngineModel.h"
#include "UI/Models/HistoryModel.h"
#include "UI/Models/HotKeySwitch.h"
#include "UI/Models/LoginSwitch.h"
#include "UI/Models/RulesModel.h"
#include "UI/Models/SettingsModel.h"
#include "UI/Models/UpdatesModel.h"
#include "UI/Onboarding/OnboardingController.h"
#include "UI/RunningApps/RunningAppsController.h"
#include "UI/Settings/SettingsWindowController.h"
#include "UI/Stage/AppearanceFeed.h"
#include "UI/Stage/DockPresence.h"
#include "UI/Stage/Stage.h"
#include "UI/StatusBar/DropdownPanel.h"
#include "UI/StatusBar/QuitAllConfirmation.h"
#include "UI/Windows.h"
#include "UI/WindowsNeighbours.h"

namespace ambrel {

/// The windows, drawn by Qt Quick.
class QuickWindows final : public Windows {
public:
    explicit QuickWindows(const WindowsNeighbours& neighbours);

    void showDropdown(const StatusItemPlace& place, DropdownActions actions) override;
    void dismissDropdown() override { dropdown_.dismiss(); }
    [[nodiscard]] bool isDropdownVisible() const override { return dropdown_.isVisible(); }
    void confirmQuitAll(const StatusItemPlace& place, QuitAllQuestion question) override;
    void showSettings() override { settingsWindow_.show(); }
    void showRunningApps() override { runningApps_.show(); }
    void presentOnboarding(std::function<void()> onFinish) override { onboarding_.present(std::move(onFinish)); }
    void presentGate(GateActions actions) override { gate_.present(std::move(actions)); }
    void dismissGate() override { gate_.dismiss(); }
    [[nodiscard]] bool hasVisibleTitledWindow() const override { return stage_.hasVisibleTitledWindow(); }

private:
    AppearanceFeed appearance_;
    SettingsModel settings_;
    EngineModel engine_;
    AppearanceGuard guard_;
    HotKeySwitch hotKey_;
    LoginSwitch login_;
    HistoryModel history_;
    AboutModel about_;
    UpdatesModel updates_;
    RulesModel rules_;
    ApplicationChooser chooser_;
    Stage stage_;
    Subscription icons_;
    DockPresence dock_;
    SettingsWindowController settingsWindow_;
    RunningAppsController runningApps_;
    OnboardingController onboarding_;
    AccessibilityGateController gate_;
    KeyablePanel::Neighbours panelNeighbours_;
    DropdownPanel dropdown_;
    QuitAllConfirmation confirmation_;
};

} // namespace ambrel
