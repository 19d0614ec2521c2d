#include "UI/Windows.h"

#include "Engine/DevGuard.h"
#include "Engine/HotKeyManager.h"
#include "Engine/QuitEngine.h"
#include "Engine/QuitRequests.h"
#include "Engine/TerminationAudit.h"
#include "Platform/AppClock.h"
#include "Platform/Bundle.h"
#include "Platform/Platform.h"
#include "State/AppRulesStore.h"
#include "State/AppSettings.h"
#include "UI/WindowsModule.h"
#include "Updates/UpdateController.h"

namespace ambrel {

Windows& Windows::shared() {
    static auto& windows = *new WindowsModule(Platform::shared().bundle().bundleURL() / "libAmbrelWindows.so", [] {
        return WindowsNeighbours{Platform::shared(),      AppSettings::shared(),      QuitEngine::shared(),
                                 HotKeyManager::shared(), TerminationAudit::shared(), AppClock::shared(),
                                 AppRulesStore::shared(), DevGuard::shared(),         QuitRequests::shared(),
                                 UpdateController::shared};
    });
    return windows;
}

} // namespace ambrel
