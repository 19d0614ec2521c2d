#pragma once

#include "Capture/FirstRun.h"
#include "Engine/DevGuard.h"
#include "Engine/HotKeyManager.h"
#include "Engine/QuitEngine.h"
#include "Engine/QuitNotifier.h"
#include "Engine/QuitRequests.h"
#include "Engine/SystemState.h"
#include "Engine/WindowOracle.h"
#include "Models/RunningAppsModel.h"
#include "Platform/Simulated/SimulatedPlatform.h"
#include "State/AppRulesStore.h"
#include "State/AppSettings.h"
#include "UI/Models/AboutModel.h"
#include "UI/Models/AppearanceGuard.h"
#include "UI/Models/ApplicationChooser.h"
#include "UI/Models/EngineModel.h"
#include "UI/Models/HistoryModel.h"
#include "UI/Models/HotKeySwitch.h"
#include "UI/Models/LoginSwitch.h"
#include "UI/Models/RulesModel.h"
#include "UI/Models/RunningAppsList.h"
#include "UI/Models/SettingsModel.h"
#include "UI/Models/UpdatesModel.h"
#include "UI/Stage/Stage.h"
#include "UI/StatusBar/DropdownPanel.h"
#include "UI/StatusBar/QuitAllConfirmation.h"
#include "Updates/UpdateController.h"

#include <memory>

#include <QVariant>

namespace ambrel {

/// What pictures show: a desktop, settings and rules of their own. Nothing of the user's is read or written, and the
/// engine doesn't run.
class Fixtures {
public:
    /// Of `environment` only `AMBREL_FAKE_NOW` counts.
    explicit Fixtures(const Environment& environment);

    /// Gives a view's engine the icons of the desktop's applications.
    void offerIcons(QQmlEngine& engine);

    /// As properties of views.
    [[nodiscard]] QVariant settings() { return QVariant::fromValue(&settingsModel_); }
    [[nodiscard]] QVariant engine() { return QVariant::fromValue(&engineModel_); }
    [[nodiscard]] QVariant appearance() { return QVariant::fromValue(&appearance_); }
    [[nodiscard]] QVariant hotKey() { return QVariant::fromValue(&hotKey_); }
    [[nodiscard]] QVariant login() { return QVariant::fromValue(&login_); }
    [[nodiscard]] QVariant history() { return QVariant::fromValue(&history_); }
    [[nodiscard]] QVariant about() { return QVariant::fromValue(&about_); }
    [[nodiscard]] QVariant updates() { return QVariant::fromValue(&updates_); }
    [[nodiscard]] QVariant noRules() { return QVariant::fromValue(&noRules_); }
    [[nodiscard]] QVariant userRules() { return QVariant::fromValue(&userRules_); }
    [[nodiscard]] QVariant runningApps() { return QVariant::fromValue(&runningAppsList_); }
    [[nodiscard]] QVariant chooser() { return QVariant::fromValue(&chooser_); }
    [[nodiscard]] QVariant gate() { return QVariant::fromValue(&firstRun_.gate()); }
    [[nodiscard]] QVariant welcome() { return QVariant::fromValue(&firstRun_.welcome()); }
    [[nodiscard]] QVariant demo() { return QVariant::fromValue(&firstRun_.demo()); }
    [[nodiscard]] QVariant completedDemo() { return QVariant::fromValue(&firstRun_.completedDemo()); }
    [[nodiscard]] QVariant dropdown() { return QVariant::fromValue(&dropdown_); }
    [[nodiscard]] QVariant confirmation() { return QVariant::fromValue(&confirmation_); }

    /// How many applications the desktop has open: those of the sample rules.
    static constexpr int openApplications = 7;

private:
    simulated::SimulatedPlatform platform_;
    std::unique_ptr<Clock> clock_;
    AppSettings settings_;
    AppRulesStore rules_;
    AppRulesStore rulesOfUser_;
    SystemState systemState_;
    TerminationAudit audit_;
    DevGuard guard_;
    WindowOracle oracle_;
    QuitNotifier notifier_;
    QuitRequests requests_;
    QuitEngine engine_;
    HotKeyManager hotKeys_;
    UpdateController updateController_;
    SettingsModel settingsModel_;
    EngineModel engineModel_;
    AppearanceGuard appearance_;
    HotKeySwitch hotKey_;
    LoginSwitch login_;
    HistoryModel history_;
    AboutModel about_;
    UpdatesModel updates_;
    RulesModel noRules_;
    RulesModel userRules_;
    ApplicationChooser chooser_;
    FirstRun firstRun_;
    RunningAppsModel runningApps_;
    RunningAppsList runningAppsList_;
    Stage stage_;
    KeyablePanel::Neighbours panelNeighbours_;
    DropdownPanel dropdown_;
    QuitAllConfirmation confirmation_;
};

} // namespace ambrel
