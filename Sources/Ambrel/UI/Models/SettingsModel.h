#pragma once

#include "Core/Signal.h"

#include <vector>

#include <QObject>
#include <QtQml/qqmlregistration.h>

namespace ambrel {

class AppSettings;
template <typename Value> class Preference;

/// The preferences as views bind to them: what is set here is stored at once, and a change made elsewhere shows here.
class SettingsModel : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the program")
    Q_PROPERTY(bool isPaused READ isPaused WRITE setIsPaused NOTIFY isPausedChanged)
    Q_PROPERTY(bool quitOnlyWhenOneWindowLeft READ quitOnlyWhenOneWindowLeft WRITE setQuitOnlyWhenOneWindowLeft NOTIFY
                   quitOnlyWhenOneWindowLeftChanged)
    Q_PROPERTY(double quitDelay READ quitDelay WRITE setQuitDelay NOTIFY quitDelayChanged)
    Q_PROPERTY(bool keepBusyApps READ keepBusyApps WRITE setKeepBusyApps NOTIFY keepBusyAppsChanged)
    Q_PROPERTY(bool notifyOnQuit READ notifyOnQuit WRITE setNotifyOnQuit NOTIFY notifyOnQuitChanged)
    Q_PROPERTY(bool confirmBeforeQuitAll READ confirmBeforeQuitAll WRITE setConfirmBeforeQuitAll NOTIFY
                   confirmBeforeQuitAllChanged)
    Q_PROPERTY(bool quitAllHotKeyEnabled READ quitAllHotKeyEnabled WRITE setQuitAllHotKeyEnabled NOTIFY
                   quitAllHotKeyEnabledChanged)
    Q_PROPERTY(bool settingsAdvancedMode READ settingsAdvancedMode WRITE setSettingsAdvancedMode NOTIFY
                   settingsAdvancedModeChanged)
    Q_PROPERTY(bool hideMenuBarIcon READ hideMenuBarIcon WRITE setHideMenuBarIcon NOTIFY hideMenuBarIconChanged)
    Q_PROPERTY(bool showDockIcon READ showDockIcon WRITE setShowDockIcon NOTIFY showDockIconChanged)
    Q_PROPERTY(bool seenHideIconWarning READ seenHideIconWarning WRITE setSeenHideIconWarning NOTIFY
                   seenHideIconWarningChanged)

public:
    /// `settings` must outlive this object.
    explicit SettingsModel(AppSettings& settings, QObject* parent = nullptr);

    [[nodiscard]] bool isPaused() const;
    [[nodiscard]] bool quitOnlyWhenOneWindowLeft() const;
    [[nodiscard]] double quitDelay() const;
    [[nodiscard]] bool keepBusyApps() const;
    [[nodiscard]] bool notifyOnQuit() const;
    [[nodiscard]] bool confirmBeforeQuitAll() const;
    [[nodiscard]] bool quitAllHotKeyEnabled() const;
    [[nodiscard]] bool settingsAdvancedMode() const;
    [[nodiscard]] bool hideMenuBarIcon() const;
    [[nodiscard]] bool showDockIcon() const;
    [[nodiscard]] bool seenHideIconWarning() const;
    void setIsPaused(bool value);
    void setQuitOnlyWhenOneWindowLeft(bool value);
    void setQuitDelay(double value);
    void setKeepBusyApps(bool value);
    void setNotifyOnQuit(bool value);
    void setConfirmBeforeQuitAll(bool value);
    void setQuitAllHotKeyEnabled(bool value);
    void setSettingsAdvancedMode(bool value);
    void setHideMenuBarIcon(bool value);
    void setShowDockIcon(bool value);
    void setSeenHideIconWarning(bool value);

Q_SIGNALS:
    void isPausedChanged();
    void quitOnlyWhenOneWindowLeftChanged();
    void quitDelayChanged();
    void keepBusyAppsChanged();
    void notifyOnQuitChanged();
    void confirmBeforeQuitAllChanged();
    void quitAllHotKeyEnabledChanged();
    void settingsAdvancedModeChanged();
    void hideMenuBarIconChanged();
    void showDockIconChanged();
    void seenHideIconWarningChanged();

private:
    template <typename Value> void follow(Preference<Value>& preference, void (SettingsModel::*changed)());

    AppSettings& settings_;
    std::vector<Subscription> subscriptions_;
};

} // namespace ambrel
