#pragma once

#include "Engine/DevGuard.h"
#include "Engine/HotKeyManager.h"
#include "Engine/QuitEngine.h"
#include "Engine/QuitNotifier.h"
#include "Engine/SystemState.h"
#include "Engine/WindowOracle.h"
#include "Platform/Simulated/SimulatedPlatform.h"
#include "State/AppRulesStore.h"
#include "State/AppSettings.h"
#include "UI/Models/AboutModel.h"
#include "UI/Models/AppearanceGuard.h"
#include "UI/Models/EngineModel.h"
#include "UI/Models/HistoryModel.h"
#include "UI/Models/HotKeySwitch.h"
#include "UI/Models/SettingsModel.h"
#include "UI/Stage/Stage.h"
#include "UI/StatusBar/DropdownPanel.h"
#include "UI/StatusBar/QuitAllConfirmation.h"

#include <memory>

#include <QVariant>

namespace ambrel {

/// What pictures show: a desktop, settings and rules of their own. Nothing of the user's is read or written, and the
/// engine doesn't run.
class Fixtures {
public:
    /// Of `environment` only `AMBREL_FAKE_NOW` counts.
    explicit Fixtures(const Environment& environment);

    /// As properties of views.
    [[nodiscard]] QVariant settings() { return QVariant::fromValue(&settingsModel_); }
    [[nodiscard]] QVariant engine() { return QVariant::fromValue(&engineModel_); }
    [[nodiscard]] QVariant appearance() { return QVariant::fromValue(&appearance_); }
    [[nodiscard]] QVariant hotKey() { return QVariant::fromValue(&hotKey_); }
    [[nodiscard]] QVariant history() { return QVariant::fromValue(&history_); }
    [[nodiscard]] QVariant about() { return QVariant::fromValue(&about_); }
    [[nodiscard]] QVariant dropdown() { return QVariant::fromValue(&dropdown_); }
    [[nodiscard]] QVariant confirmation() { return QVariant::fromValue(&confirmation_); }

    /// How many applications the desktop has open.
    static constexpr int openApplications = 7;

private:
    simulated::SimulatedPlatform platform_;
    std::unique_ptr<Clock> clock_;
    AppSettings settings_;
    AppRulesStore rules_;
    SystemState systemState_;
    TerminationAudit audit_;
    DevGuard guard_;
    WindowOracle oracle_;
    QuitNotifier notifier_;
    QuitEngine engine_;
    HotKeyManager hotKeys_;
    SettingsModel settingsModel_;
    EngineModel engineModel_;
    AppearanceGuard appearance_;
    HotKeySwitch hotKey_;
    HistoryModel history_;
    AboutModel about_;
    Stage stage_;
    KeyablePanel::Neighbours panelNeighbours_;
    DropdownPanel dropdown_;
    QuitAllConfirmation confirmation_;
};

} // namespace ambrel
