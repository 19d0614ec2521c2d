#pragma once

#include "Core/Signal.h"
#include "UI/Stage/WindowPlace.h"

#include <memory>

#include <QObject>

class QQuickView;

namespace ambrel {

class AboutModel;
class AppearanceGuard;
class ApplicationChooser;
class AppSettings;
class Compositor;
class DockPresence;
class EngineModel;
class HistoryModel;
class HotKeySwitch;
class LoginSwitch;
class RulesModel;
class SettingsModel;
class Stage;
class UpdatesModel;

/// The settings window: built when it is first shown, hidden when it is closed, and built anew after the stage has
/// let go of its views.
class SettingsWindowController {
public:
    struct Neighbours {
        Stage& stage;
        Compositor& compositor;
        DockPresence& dock;
        AppSettings& settings;
        SettingsModel& settingsModel;
        EngineModel& engineModel;
        AppearanceGuard& appearance;
        HotKeySwitch& hotKey;
        LoginSwitch& login;
        HistoryModel& history;
        AboutModel& about;
        UpdatesModel& updates;
        RulesModel& rules;
        ApplicationChooser& chooser;
    };

    explicit SettingsWindowController(Neighbours neighbours);
    SettingsWindowController(const SettingsWindowController&) = delete;
    SettingsWindowController& operator=(const SettingsWindowController&) = delete;
    ~SettingsWindowController();

    void show();

private:
    void makeWindow();

    Neighbours neighbours_;
    WindowPlace place_;
    std::unique_ptr<QQuickView> window_;
    Subscription lettingGo_;
};

} // namespace ambrel
