#pragma once

#include "Models/OnboardingModel.h"
#include "UI/Models/GatePermission.h"
#include "UI/Models/OnboardingSteps.h"

namespace ambrel {

/// What pictures show of the first steps and of the gate, on a desktop that gives no permission. Nothing of it goes on
/// by itself.
class FirstRun {
public:
    FirstRun(Platform& platform, QuitEngine& engine);

    [[nodiscard]] GatePermission& gate() { return gate_; }
    [[nodiscard]] OnboardingSteps& welcome() { return welcome_.steps; }
    [[nodiscard]] OnboardingSteps& demo() { return demo_.steps; }
    [[nodiscard]] OnboardingSteps& completedDemo() { return completedDemo_.steps; }

private:
    struct Screen {
        Screen(Platform& platform, QuitEngine& engine) : model(platform, engine), steps(model) {}

        OnboardingModel model;
        OnboardingSteps steps;
    };

    GatePermission gate_;
    Screen welcome_;
    Screen demo_;
    Screen completedDemo_;
};

} // namespace ambrel
