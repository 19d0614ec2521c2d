#pragma once

#include <QObject>
#include <QtQml/qqmlregistration.h>

namespace ambrel {

class AppSettings;
class HotKeyManager;

/// Turns the global hotkey for Quit All on and off.
class HotKeySwitch : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the program")

public:
    /// Both must outlive this object.
    HotKeySwitch(AppSettings& settings, HotKeyManager& hotKeys, QObject* parent = nullptr)
        : QObject(parent), settings_(settings), hotKeys_(hotKeys) {}

    /// Stores the choice, and takes or gives back the key combination.
    Q_INVOKABLE void set(bool value);

private:
    AppSettings& settings_;
    HotKeyManager& hotKeys_;
};

} // namespace ambrel
