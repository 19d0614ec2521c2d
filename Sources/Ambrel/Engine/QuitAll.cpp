#include "Engine/QuitAll.h"

#include "Engine/DevGuard.h"
#include "Engine/QuitRequests.h"
#include "Engine/TerminationAudit.h"
#include "Platform/Bundle.h"
#include "Platform/Platform.h"
#include "Platform/Workspace.h"
#include "State/AppRulesStore.h"

#include <algorithm>
#include <array>

namespace ambrel {

namespace {

/// Never touched, whatever a rule says.
constexpr std::array<std::string_view, 7> systemCritical{
    "com.apple.finder",        "com.apple.dock",        "com.apple.controlcenter",    "com.apple.notificationcenterui",
    "com.apple.WindowManager", "com.apple.loginwindow", "com.apple.systempreferences"};

} // namespace

QuitAll& QuitAll::shared() {
    static auto& quitAll = *new QuitAll(Platform::shared(), AppRulesStore::shared(), DevGuard::shared(),
                                        TerminationAudit::shared(), QuitRequests::shared());
    return quitAll;
}

QuitAll::QuitAll(Platform& platform, const AppRulesStore& rules, DevGuard& guard, TerminationAudit& audit,
                 QuitRequests& requests)
    : platform_(platform), rules_(rules), guard_(guard), audit_(audit), requests_(requests) {}

std::vector<RunningApplicationRef> QuitAll::eligibleApps() const {
    auto apps = platform_.workspace().runningApplications();
    std::erase_if(apps, [this](const RunningApplicationRef& app) { return !isEligible(*app); });
    return apps;
}

bool QuitAll::isEligible(const RunningApplication& app) const {
    const auto bundleID = app.bundleIdentifier();
    if (app.activationPolicy() != ActivationPolicy::regular || !bundleID) {
        return false;
    }
    if (bundleID == platform_.bundle().bundleIdentifier()) {
        return false;
    }
    const bool critical = std::find(systemCritical.begin(), systemCritical.end(), *bundleID) != systemCritical.end();
    return !critical && rules_.rule(*bundleID).includedInQuitAll;
}

int QuitAll::run(bool force) {
    const auto apps = eligibleApps();
    for (const auto& app : apps) {
        if (guard_.mayTerminate(*app, TerminationAudit::Path::quitAll)) {
            force ? end(*app) : quit(app);
        }
    }
    log_.notice("Quit All: requested {} of {} apps", force ? "force-quit" : "quit", apps.size());
    return static_cast<int>(apps.size());
}

void QuitAll::quit(const RunningApplicationRef& app) {
    requests_.ask({.app = app,
                   .path = TerminationAudit::Path::quitAll,
                   .stillHolds = [this, app] { return isEligible(*app); },
                   .willSend =
                       [this, app] {
                           log_.notice("Quit All: quitting {}", app->bundleIdentifier().value_or("?"));
                       }});
}

void QuitAll::end(RunningApplication& app) {
    log_.notice("Quit All: force-quitting {}", app.bundleIdentifier().value_or("?"));
    audit_.record(TerminationAudit::Path::quitAll, app, TerminationAudit::Action::forceTerminated);
    app.forceTerminate();
}

} // namespace ambrel
