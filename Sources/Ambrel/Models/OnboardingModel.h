#pragma once

#include "Core/Lifetime.h"
#include "Core/Observable.h"
#include "Core/RepeatingTimer.h"
#include "Platform/RunningApplication.h"

#include <functional>
#include <string>

namespace ambrel {

class Platform;
class QuitEngine;

enum class OnboardingState { welcome, waitingForPermission, demo, completing };
enum class DemoCardState { waiting, watching, completed };

/// One run through the first steps: the permission, and then the engine shown at work on the text editor. Main thread
/// only.
class OnboardingModel {
public:
    /// On a trusted desktop the demo begins at once.
    OnboardingModel(Platform& platform, QuitEngine& engine);
    OnboardingModel(const OnboardingModel&) = delete;
    OnboardingModel& operator=(const OnboardingModel&) = delete;
    ~OnboardingModel();

    /// Asks for the permission and waits for it; opens the settings too if it is long in coming.
    void getStarted();
    void openSystemSettings();
    void openTextEdit();
    void done();
    /// Stops waiting and watching.
    void teardown();

    /// Ends onboarding.
    std::function<void()> onFinish = [] {
    };

    Observable<OnboardingState> state{OnboardingState::welcome};
    Observable<DemoCardState> demo{DemoCardState::waiting};
    Observable<bool> textEditRunning{false};
    /// A sentence for a screen reader.
    Signal<const std::string&> announcement;

private:
    void permissionTick();
    void openSettingsLink();
    void cancelDeepLink();
    void beginDemo();
    void setTextEditRunning(bool running);
    void textEditTerminated();

    Platform& platform_;
    QuitEngine& engine_;
    RepeatingTimer permissionTimer_;
    WorkItemRef deepLinkTimer_;
    Subscription launchObserver_;
    Subscription terminateObserver_;
    bool sawTextEditRunning_ = false;
    Lifetime lifetime_;
};

} // namespace ambrel
