#pragma once

#include "Core/Signal.h"

#include <functional>
#include <vector>

#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

namespace ambrel {

class UpdateController;

/// What views show of newer versions, and command.
class UpdatesModel : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the program")
    Q_PROPERTY(bool automaticallyChecks READ automaticallyChecks WRITE setAutomaticallyChecks NOTIFY changed)
    /// The program can be updated at all.
    Q_PROPERTY(bool isSupported READ isSupported NOTIFY changed)
    /// A service is there to be asked.
    Q_PROPERTY(bool isAvailable READ isAvailable NOTIFY changed)
    /// The newer version that is offered; empty without one.
    Q_PROPERTY(QString offeredVersion READ offeredVersion NOTIFY changed)

public:
    /// `controller` is asked for the first time when something is shown of it.
    explicit UpdatesModel(std::function<UpdateController&()> controller, QObject* parent = nullptr);

    [[nodiscard]] bool automaticallyChecks();
    void setAutomaticallyChecks(bool value);
    [[nodiscard]] bool isSupported();
    [[nodiscard]] bool isAvailable();
    [[nodiscard]] QString offeredVersion();
    Q_INVOKABLE void checkForUpdates();

Q_SIGNALS:
    void changed();

private:
    [[nodiscard]] UpdateController& controller();

    std::function<UpdateController&()> make_;
    UpdateController* controller_ = nullptr;
    std::vector<Subscription> subscriptions_;
};

} // namespace ambrel
