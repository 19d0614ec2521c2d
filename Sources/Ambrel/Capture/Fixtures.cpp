#include "Capture/Fixtures.h"

#include "Capture/SampleEvents.h"
#include "Capture/SampleRules.h"
#include "Platform/AppClock.h"
#include "UI/Components/ApplicationIconProvider.h"

#include <QQmlEngine>

namespace ambrel {

namespace {

/// A folder that can't be there: the desktop of pictures has no files.
constexpr const char* home = "/dev/null/pictures";

std::vector<AppRule> withSystemDefaults(const Workspace& workspace, std::vector<AppRule> rules) {
    const auto defaults = AppRulesStore::systemDefaultRules(workspace);
    rules.insert(rules.end(), defaults.begin(), defaults.end());
    return rules;
}

/// The desktop becomes the one that everything in the process asks for.
Platform& prepared(simulated::SimulatedPlatform& platform, const Environment& environment) {
    if (auto now = environment.value("AMBREL_FAKE_NOW")) {
        platform.environment().set("AMBREL_FAKE_NOW", *std::move(now));
    }
    // Named on the history's page, and never there.
    platform.environment().set("AMBREL_TERMLOG", std::string(home) + "/.local/state/Ambrel/terminations.log");
    // A version of its own would date the pictures.
    platform.bundle().version.reset();
    platform.windowList().setReadable(false);
    for (const auto& rule : sampleRules()) {
        platform.launch(rule.bundleIdentifier(), rule.displayName);
    }
    Platform::install(platform);
    return platform;
}

} // namespace

Fixtures::Fixtures(const Environment& environment)
    : platform_(home), clock_(AppClock::choose(prepared(platform_, environment).environment(), platform_.wallClock())),
      settings_(platform_.userDefaults().suite("app.ambrel.Ambrel.capture"), platform_.bundle()),
      rules_(AppRulesStore::systemDefaultRules(platform_.workspace()), AppRule::initialDefaultRule()),
      rulesOfUser_(withSystemDefaults(platform_.workspace(), sampleRules()), AppRule::initialDefaultRule()),
      systemState_(platform_.environment(), platform_.session()), audit_(platform_, *clock_), guard_(platform_, audit_),
      oracle_(platform_.windowServer()), notifier_(platform_, settings_), requests_(platform_, audit_, notifier_),
      engine_(platform_, {settings_, rules_, systemState_, guard_, oracle_, audit_, notifier_, requests_, *clock_}),
      hotKeys_(platform_.hotKeyCenter()), updateController_(platform_), settingsModel_(settings_),
      engineModel_(engine_), appearance_(settings_), hotKey_(settings_, hotKeys_), login_(platform_.loginItem()),
      history_({audit_, *clock_, platform_.workspace(), home}), about_(platform_),
      updates_([this]() -> UpdateController& { return updateController_; }), noRules_(platform_, rules_),
      userRules_(platform_, rulesOfUser_), chooser_(platform_.workspace()), firstRun_(platform_, engine_),
      runningApps_(platform_, {guard_, audit_, requests_, rules_}), runningAppsList_(runningApps_),
      stage_(platform_.mainQueue()), panelNeighbours_{stage_, platform_.compositor(), platform_.clickMonitor(),
                                                      platform_.workspace()},
      dropdown_(panelNeighbours_, settingsModel_, engineModel_), confirmation_(panelNeighbours_) {
    settings_.quitDelay.set(0.5);
    history_.preview(sampleEvents(clock_->now()));
    engine_.monitoredCount.set(openApplications);
    runningApps_.toggleSelected(runningApps_.apps.get().front()->processIdentifier());
}

void Fixtures::offerIcons(QQmlEngine& engine) {
    engine.addImageProvider(QLatin1String(ApplicationIconProvider::scheme),
                            new ApplicationIconProvider(platform_.workspace()));
}

} // namespace ambrel
