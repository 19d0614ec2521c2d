#include "UI/Onboarding/OnboardingController.h"

#include "Platform/Platform.h"
#include "UI/Models/OnboardingSteps.h"
#include "UI/Onboarding/Onboarding.h"
#include "UI/Stage/DockPresence.h"
#include "UI/Stage/GlassWindow.h"
#include "UI/Stage/Stage.h"
#include "UI/Stage/WindowAnimation.h"

#include <utility>

namespace ambrel {

namespace {

constexpr double scaleFrom = 0.92;
constexpr double fadeInSeconds = 0.3;
constexpr double fadeOutSeconds = 0.2;

} // namespace

OnboardingController::OnboardingController(Neighbours neighbours)
    : neighbours_(neighbours), lettingGo_(neighbours.stage.willLetGo.subscribe([this] { letGo(); })) {}

OnboardingController::~OnboardingController() {
    letGo();
}

void OnboardingController::present(std::function<void()> onFinish) {
    letGo();
    finished_ = false;
    makeModel(std::move(onFinish));
    makeWindow();
    neighbours_.dock.willShowWindow();
    DockPresence::bringForward(*window_);
    animateWindowIn(*window_, scaleFrom, 0, fadeInSeconds);
    log_.notice("onboarding presented");
}

void OnboardingController::makeModel(std::function<void()> onFinish) {
    model_ = std::make_unique<OnboardingModel>(neighbours_.platform, neighbours_.engine);
    steps_ = std::make_unique<OnboardingSteps>(*model_);
    model_->onFinish = lifetime_.guard([this, onFinish = std::move(onFinish)] {
        if (std::exchange(finished_, true)) {
            return;
        }
        Onboarding::markCompleted(neighbours_.platform.userDefaults());
        dismiss();
        onFinish();
    });
}

void OnboardingController::makeWindow() {
    window_ = GlassWindow::make(neighbours_.stage, neighbours_.compositor, QStringLiteral("OnboardingRoot"),
                                {{"steps", QVariant::fromValue(steps_.get())}}, size,
                                WindowStyle::titled | WindowStyle::closable | WindowStyle::fullSizeContentView);
    window_->setTitle(QStringLiteral("Ambrel"));
    window_->setMinimumSize(size);
    window_->setMaximumSize(size);
    QObject::connect(window_.get(), &QWindow::visibleChanged, window_.get(), [this](bool visible) {
        if (!visible) {
            windowDidClose();
        }
    });
}

void OnboardingController::windowDidClose() {
    if (finished_) {
        return;
    }
    log_.notice("onboarding closed by user — treating as Set Up Later");
    steps_->setUpLater();
}

void OnboardingController::dismiss() {
    model_->teardown();
    neighbours_.dock.restore();
    if (window_->isVisible()) {
        animateWindowOut(*window_, fadeOutSeconds);
    }
    log_.notice("onboarding dismissed");
}

// The model stays as long as its views do, also while they fade.
void OnboardingController::letGo() {
    finished_ = true;
    window_.reset();
    steps_.reset();
    model_.reset();
}

} // namespace ambrel
