#pragma once

#include "Core/Signal.h"

#include <functional>

#include <QObject>
#include <QtQml/qqmlregistration.h>

namespace ambrel {

class WindowList;

/// What the gate waits for.
class GatePermission : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the program")
    Q_PROPERTY(bool granted READ granted NOTIFY grantedChanged)

public:
    /// `windows` must outlive this object.
    GatePermission(WindowList& windows, std::function<void()> onOpenSettings, QObject* parent = nullptr);

    /// Once it is there, it stays.
    [[nodiscard]] bool granted() const { return granted_; }
    Q_INVOKABLE void openSettings() { onOpenSettings_(); }

Q_SIGNALS:
    void grantedChanged();

private:
    void readableDidChange(bool readable);

    std::function<void()> onOpenSettings_;
    bool granted_ = false;
    Subscription changes_;
};

} // namespace ambrel
