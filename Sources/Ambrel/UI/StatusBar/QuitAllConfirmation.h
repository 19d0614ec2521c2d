#pragma once

#include "UI/StatusBar/KeyablePanel.h"
#include "UI/Windows.h"

#include <QtQml/qqmlregistration.h>

namespace ambrel {

/// The question before Quit All, under the status item. Closing it in any way but by its confirm button is a no.
class QuitAllConfirmation : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the program")

public:
    explicit QuitAllConfirmation(KeyablePanel::Neighbours neighbours) : panel_(neighbours) {}

    void ask(const StatusItemPlace& place, Windows::QuitAllQuestion question);

    Q_INVOKABLE void confirm();
    Q_INVOKABLE void cancel();
    void close() { panel_.dismiss(); }

private:
    KeyablePanel panel_;
    Windows::QuitAllQuestion question_;
};

} // namespace ambrel
