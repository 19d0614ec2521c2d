#include "Updates/UpdateController.h"

#include "Platform/Bundle.h"
#include "Platform/Platform.h"
#include "Platform/Updater.h"

#include <cstdio>
#include <utility>

namespace ambrel {

UpdateController& UpdateController::shared() {
    static auto& controller = *new UpdateController(Platform::shared());
    return controller;
}

UpdateController::UpdateController(Platform& platform)
    : updaterSupported(platform.bundle().bundleURL().string().ends_with(".app")), updater_(platform.updater()) {
    if (updaterSupported) {
        start();
        return;
    }
    log_.notice("Sparkle updater NOT started — not running from a .app bundle (dev binary / snapshot / capture)");
    std::puts("Ambrel: Sparkle updater not started (bare binary)");
}

void UpdateController::start() {
    availability_ = updater_.availabilityDidChange.subscribe([this](bool available) { isAvailable.set(available); });
    offers_ = updater_.updateOffered.subscribe([this](const std::string& version) { offeredVersion.set(version); });
    updater_.start();
    automaticallyChecksForUpdates.set(updater_.automaticallyChecksForUpdates());
    choice_ = automaticallyChecksForUpdates.subscribe([this, first = true](bool checks) mutable {
        if (!std::exchange(first, false)) {
            updater_.setAutomaticallyChecksForUpdates(checks);
        }
    });
    log_.notice("Sparkle updater started (auto={})", automaticallyChecksForUpdates.get());
}

void UpdateController::checkForUpdates() {
    if (updaterSupported) {
        updater_.checkForUpdates();
    }
}

} // namespace ambrel
