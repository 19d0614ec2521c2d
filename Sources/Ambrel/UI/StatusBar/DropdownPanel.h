#pragma once

#include "UI/StatusBar/KeyablePanel.h"
#include "UI/Windows.h"

#include <QtQml/qqmlregistration.h>

namespace ambrel {

class EngineModel;
class SettingsModel;

/// The panel of everyday commands under the status item.
class DropdownPanel : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the program")

public:
    DropdownPanel(KeyablePanel::Neighbours neighbours, SettingsModel& settings, EngineModel& engine);

    void show(const StatusItemPlace& place, Windows::DropdownActions actions);
    void dismiss() { panel_.dismiss(); }
    [[nodiscard]] bool isVisible() const { return panel_.isVisible(); }

    Q_INVOKABLE void togglePause() { actions_.togglePause(); }
    Q_INVOKABLE void quitAll() { actions_.quitAll(); }
    Q_INVOKABLE void runningApps() { actions_.runningApps(); }
    Q_INVOKABLE void openSettings() { actions_.openSettings(); }
    Q_INVOKABLE void quitApp() { actions_.quitApp(); }

private:
    KeyablePanel panel_;
    SettingsModel& settings_;
    EngineModel& engine_;
    Windows::DropdownActions actions_;
};

} // namespace ambrel
