#include "Models/OnboardingModel.h"

#include "Core/Localized.h"
#include "Engine/AccessibilityGate.h"
#include "Engine/QuitEngine.h"
#include "Platform/Platform.h"
#include "Platform/Workspace.h"

#include <utility>

namespace ambrel {

namespace {

constexpr auto textEdit = "com.apple.TextEdit";
constexpr Seconds permissionInterval{1.0};
constexpr Seconds deepLinkDelay{3.0};

} // namespace

OnboardingModel::OnboardingModel(Platform& platform, QuitEngine& engine)
    : platform_(platform), engine_(engine), permissionTimer_(platform.mainQueue()) {
    if (platform_.windowList().isReadable()) {
        state.set(OnboardingState::demo);
        beginDemo();
    }
}

OnboardingModel::~OnboardingModel() {
    teardown();
}

void OnboardingModel::getStarted() {
    AccessibilityGate::promptForTrust(platform_.windowList());
    state.set(OnboardingState::waitingForPermission);
    permissionTimer_.start(permissionInterval, [this] { permissionTick(); });
    cancelDeepLink();
    deepLinkTimer_ = platform_.mainQueue().asyncAfter(deepLinkDelay, lifetime_.guard([this] {
        if (!platform_.windowList().isReadable()) {
            openSettingsLink();
        }
    }));
}

void OnboardingModel::openSystemSettings() {
    cancelDeepLink();
    AccessibilityGate::promptForTrust(platform_.windowList());
    openSettingsLink();
}

void OnboardingModel::openSettingsLink() {
    platform_.workspace().openURL(AccessibilityGate::settingsLink);
}

void OnboardingModel::cancelDeepLink() {
    if (const auto timer = std::exchange(deepLinkTimer_, nullptr)) {
        timer->cancel();
    }
}

void OnboardingModel::permissionTick() {
    if (!platform_.windowList().isReadable()) {
        return;
    }
    permissionTimer_.stop();
    cancelDeepLink();
    state.set(OnboardingState::demo);
    beginDemo();
}

void OnboardingModel::beginDemo() {
    engine_.start();
    auto& workspace = platform_.workspace();
    launchObserver_ = workspace.didLaunch.subscribe([this](const RunningApplicationRef& app) {
        if (app->bundleIdentifier() == textEdit) {
            setTextEditRunning(true);
        }
    });
    terminateObserver_ = workspace.didTerminate.subscribe([this](const RunningApplicationRef& app) {
        if (app->bundleIdentifier() == textEdit) {
            textEditTerminated();
        }
    });
    setTextEditRunning(!workspace.runningApplicationsWithBundleIdentifier(textEdit).empty());
}

void OnboardingModel::setTextEditRunning(bool running) {
    textEditRunning.set(running);
    if (running && demo.get() == DemoCardState::waiting) {
        sawTextEditRunning_ = true;
        demo.set(DemoCardState::watching);
    }
}

void OnboardingModel::textEditTerminated() {
    textEditRunning.set(false);
    if (sawTextEditRunning_ && demo.get() != DemoCardState::completed) {
        demo.set(DemoCardState::completed);
        announcement.emit(localized(translatable("ambrel", "Ambrel quit TextEdit for you. Setup is complete.")));
    }
}

void OnboardingModel::openTextEdit() {
    if (const auto installed = platform_.workspace().installedApplication(textEdit)) {
        platform_.workspace().openApplication(installed->url);
    }
}

void OnboardingModel::done() {
    state.set(OnboardingState::completing);
    // A copy: it ends in this object's own end.
    const auto finish = onFinish;
    finish();
}

void OnboardingModel::teardown() {
    permissionTimer_.stop();
    cancelDeepLink();
    launchObserver_ = {};
    terminateObserver_ = {};
}

} // namespace ambrel
