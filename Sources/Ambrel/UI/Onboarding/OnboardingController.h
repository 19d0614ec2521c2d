#pragma once

#include "Core/Lifetime.h"
#include "Core/Logger.h"
#include "Core/Signal.h"

#include <functional>
#include <memory>

#include <QSize>

class QQuickView;

namespace ambrel {

class Compositor;
class DockPresence;
class OnboardingModel;
class OnboardingSteps;
class Platform;
class QuitEngine;
class Stage;

/// The window of the first run. However it is left, onboarding is completed, once.
class OnboardingController {
public:
    struct Neighbours {
        Stage& stage;
        Compositor& compositor;
        DockPresence& dock;
        Platform& platform;
        QuitEngine& engine;
    };

    /// Of the window's content.
    static constexpr QSize size{540, 400};

    explicit OnboardingController(Neighbours neighbours);
    OnboardingController(const OnboardingController&) = delete;
    OnboardingController& operator=(const OnboardingController&) = delete;
    ~OnboardingController();

    /// `onFinish` runs after the window has been left.
    void present(std::function<void()> onFinish);

private:
    void makeModel(std::function<void()> onFinish);
    void makeWindow();
    void windowDidClose();
    void dismiss();
    void letGo();

    Neighbours neighbours_;
    std::unique_ptr<OnboardingModel> model_;
    std::unique_ptr<OnboardingSteps> steps_;
    std::unique_ptr<QQuickView> window_;
    bool finished_ = false;
    Logger log_{"ui"};
    Subscription lettingGo_;
    Lifetime lifetime_;
};

} // namespace ambrel
