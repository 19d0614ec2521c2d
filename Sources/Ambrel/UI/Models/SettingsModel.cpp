#include "UI/Models/SettingsModel.h"

#include "State/AppSettings.h"

namespace ambrel {

SettingsModel::SettingsModel(AppSettings& settings, QObject* parent) : QObject(parent), settings_(settings) {
    follow(settings.isPaused, &SettingsModel::isPausedChanged);
    follow(settings.quitOnlyWhenOneWindowLeft, &SettingsModel::quitOnlyWhenOneWindowLeftChanged);
    follow(settings.quitDelay, &SettingsModel::quitDelayChanged);
    follow(settings.notifyOnQuit, &SettingsModel::notifyOnQuitChanged);
    follow(settings.keepBusyApps, &SettingsModel::keepBusyAppsChanged);
    follow(settings.confirmBeforeQuitAll, &SettingsModel::confirmBeforeQuitAllChanged);
    follow(settings.quitAllHotKeyEnabled, &SettingsModel::quitAllHotKeyEnabledChanged);
    follow(settings.settingsAdvancedMode, &SettingsModel::settingsAdvancedModeChanged);
    follow(settings.hideMenuBarIcon, &SettingsModel::hideMenuBarIconChanged);
    follow(settings.showDockIcon, &SettingsModel::showDockIconChanged);
    follow(settings.seenHideIconWarning, &SettingsModel::seenHideIconWarningChanged);
}

template <typename Value> void SettingsModel::follow(Preference<Value>& preference, void (SettingsModel::*changed)()) {
    subscriptions_.push_back(preference.subscribe([this, changed](const Value&) { (this->*changed)(); }));
}

bool SettingsModel::isPaused() const {
    return settings_.isPaused.get();
}

bool SettingsModel::quitOnlyWhenOneWindowLeft() const {
    return settings_.quitOnlyWhenOneWindowLeft.get();
}

double SettingsModel::quitDelay() const {
    return settings_.quitDelay.get();
}

bool SettingsModel::keepBusyApps() const {
    return settings_.keepBusyApps.get();
}

bool SettingsModel::notifyOnQuit() const {
    return settings_.notifyOnQuit.get();
}

bool SettingsModel::confirmBeforeQuitAll() const {
    return settings_.confirmBeforeQuitAll.get();
}

bool SettingsModel::quitAllHotKeyEnabled() const {
    return settings_.quitAllHotKeyEnabled.get();
}

bool SettingsModel::settingsAdvancedMode() const {
    return settings_.settingsAdvancedMode.get();
}

bool SettingsModel::hideMenuBarIcon() const {
    return settings_.hideMenuBarIcon.get();
}

bool SettingsModel::showDockIcon() const {
    return settings_.showDockIcon.get();
}

bool SettingsModel::seenHideIconWarning() const {
    return settings_.seenHideIconWarning.get();
}

void SettingsModel::setIsPaused(bool value) {
    settings_.isPaused.set(value);
}

void SettingsModel::setQuitOnlyWhenOneWindowLeft(bool value) {
    settings_.quitOnlyWhenOneWindowLeft.set(value);
}

void SettingsModel::setQuitDelay(double value) {
    settings_.quitDelay.set(value);
}

void SettingsModel::setKeepBusyApps(bool value) {
    settings_.keepBusyApps.set(value);
}

void SettingsModel::setNotifyOnQuit(bool value) {
    settings_.notifyOnQuit.set(value);
}

void SettingsModel::setConfirmBeforeQuitAll(bool value) {
    settings_.confirmBeforeQuitAll.set(value);
}

void SettingsModel::setQuitAllHotKeyEnabled(bool value) {
    settings_.quitAllHotKeyEnabled.set(value);
}

void SettingsModel::setSettingsAdvancedMode(bool value) {
    settings_.settingsAdvancedMode.set(value);
}

void SettingsModel::setHideMenuBarIcon(bool value) {
    settings_.hideMenuBarIcon.set(value);
}

void SettingsModel::setShowDockIcon(bool value) {
    settings_.showDockIcon.set(value);
}

void SettingsModel::setSeenHideIconWarning(bool value) {
    settings_.seenHideIconWarning.set(value);
}

} // namespace ambrel
