#pragma once

#include "Core/Signal.h"

#include <QObject>
#include <QtQml/qqmlregistration.h>

namespace ambrel {

class QuitEngine;

/// What views show of the engine.
class EngineModel : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the program")
    /// How many applications are watched.
    Q_PROPERTY(int monitoredCount READ monitoredCount NOTIFY monitoredCountChanged)

public:
    /// `engine` must outlive this object.
    explicit EngineModel(QuitEngine& engine, QObject* parent = nullptr);

    [[nodiscard]] int monitoredCount() const;

Q_SIGNALS:
    void monitoredCountChanged();

private:
    QuitEngine& engine_;
    Subscription subscription_;
};

} // namespace ambrel
