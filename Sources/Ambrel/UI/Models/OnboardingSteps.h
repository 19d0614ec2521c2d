#pragma once

#include "Core/Signal.h"
#include "Models/OnboardingModel.h"

#include <vector>

#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

namespace ambrel {

/// The first steps as their views show and command them.
class OnboardingSteps : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the program")
    Q_PROPERTY(State state READ state NOTIFY stateChanged)
    Q_PROPERTY(Card demo READ demo NOTIFY demoChanged)
    Q_PROPERTY(bool textEditRunning READ textEditRunning NOTIFY textEditRunningChanged)
    Q_PROPERTY(QString announcement READ announcement NOTIFY announcementChanged)

public:
    enum State {
        Welcome = static_cast<int>(OnboardingState::welcome),
        WaitingForPermission = static_cast<int>(OnboardingState::waitingForPermission),
        Demo = static_cast<int>(OnboardingState::demo),
        Completing = static_cast<int>(OnboardingState::completing),
    };
    Q_ENUM(State)
    enum Card {
        Waiting = static_cast<int>(DemoCardState::waiting),
        Watching = static_cast<int>(DemoCardState::watching),
        Completed = static_cast<int>(DemoCardState::completed),
    };
    Q_ENUM(Card)

    /// `model` must outlive this object.
    explicit OnboardingSteps(OnboardingModel& model, QObject* parent = nullptr);

    [[nodiscard]] State state() const { return static_cast<State>(model_.state.get()); }
    [[nodiscard]] Card demo() const { return static_cast<Card>(model_.demo.get()); }
    [[nodiscard]] bool textEditRunning() const { return model_.textEditRunning.get(); }
    /// What a screen reader should say; empty until there is something.
    [[nodiscard]] QString announcement() const { return announcement_; }

    Q_INVOKABLE void getStarted() { model_.getStarted(); }
    Q_INVOKABLE void openSystemSettings() { model_.openSystemSettings(); }
    Q_INVOKABLE void openTextEdit() { model_.openTextEdit(); }
    Q_INVOKABLE void done() { model_.done(); }
    Q_INVOKABLE void setUpLater();

Q_SIGNALS:
    void stateChanged();
    void demoChanged();
    void textEditRunningChanged();
    void announcementChanged();

private:
    OnboardingModel& model_;
    QString announcement_;
    std::vector<Subscription> subscriptions_;
};

} // namespace ambrel
