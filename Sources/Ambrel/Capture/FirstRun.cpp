#include "Capture/FirstRun.h"

#include "Platform/Platform.h"
#include "Platform/WindowList.h"

namespace ambrel {

FirstRun::FirstRun(Platform& platform, QuitEngine& engine)
    : gate_(platform.windowList(), [] {}), welcome_(platform, engine), demo_(platform, engine),
      completedDemo_(platform, engine) {
    demo_.model.state.set(OnboardingState::demo);
    completedDemo_.model.state.set(OnboardingState::demo);
    completedDemo_.model.demo.set(DemoCardState::completed);
}

} // namespace ambrel
