#include "Engine/DevGuard.h"

#include "Platform/Environment.h"
#include "Platform/Platform.h"
#include "Platform/UserDefaults.h"

#include <array>

#include <strings.h>

namespace ambrel {

namespace {

constexpr std::array whitelist{"com.apple.TextEdit"};

bool isWhitelisted(const std::string& bundle) {
    for (const char* member : whitelist) {
        if (strcasecmp(member, bundle.c_str()) == 0) {
            return true;
        }
    }
    return false;
}

} // namespace

DevGuard& DevGuard::shared() {
    static auto& guard = *new DevGuard(Platform::shared(), TerminationAudit::shared());
    return guard;
}

bool DevGuard::isActive() const {
    return platform_.environment().isSet("AMBREL_DEV_MODE") ||
           platform_.userDefaults().productSuite()->boolForKey("devModeForTesting");
}

bool DevGuard::mayTerminate(const RunningApplication& app, TerminationAudit::Path path) {
    const auto bundle = app.bundleIdentifier().value_or("");
    if (platform_.environment().isSet("AMBREL_SHADOW_MODE")) {
        log_.notice("SHADOW: would have terminated {} — skipped (shadow mode)", bundle);
        audit_.record(path, app, TerminationAudit::Action::skippedShadowMode);
        return false;
    }
    if (!isActive() || isWhitelisted(bundle)) {
        return true;
    }
    log_.notice("DEV_MODE: would have quit {} — skipped", bundle);
    audit_.record(path, app, TerminationAudit::Action::skippedDevMode);
    return false;
}

} // namespace ambrel
