#include "Capture/Fixtures.h"

#include "Capture/SampleEvents.h"
#include "Platform/AppClock.h"

namespace ambrel {

namespace {

/// A folder that can't be there: the desktop of pictures has no files.
constexpr const char* home = "/dev/null/pictures";

/// The desktop becomes the one that everything in the process asks for.
Platform& prepared(simulated::SimulatedPlatform& platform, const Environment& environment) {
    if (auto now = environment.value("AMBREL_FAKE_NOW")) {
        platform.environment().set("AMBREL_FAKE_NOW", *std::move(now));
    }
    // Named on the history's page, and never there.
    platform.environment().set("AMBREL_TERMLOG", std::string(home) + "/.local/state/Ambrel/terminations.log");
    // A version of its own would date the pictures.
    platform.bundle().version.reset();
    Platform::install(platform);
    return platform;
}

} // namespace

Fixtures::Fixtures(const Environment& environment)
    : platform_(home), clock_(AppClock::choose(prepared(platform_, environment).environment(), platform_.wallClock())),
      settings_(platform_.userDefaults().suite("app.ambrel.Ambrel.capture"), platform_.bundle()),
      rules_(AppRulesStore::systemDefaultRules(platform_.workspace()), AppRule::initialDefaultRule()),
      systemState_(platform_.environment(), platform_.session()), audit_(platform_, *clock_), guard_(platform_, audit_),
      oracle_(platform_.windowServer()), notifier_(platform_, settings_),
      engine_(platform_, {settings_, rules_, systemState_, guard_, oracle_, audit_, notifier_, *clock_}),
      hotKeys_(platform_.hotKeyCenter()), settingsModel_(settings_), engineModel_(engine_), appearance_(settings_),
      hotKey_(settings_, hotKeys_), history_({audit_, *clock_, platform_.workspace(), home}), about_(platform_),
      stage_(platform_.mainQueue()), panelNeighbours_{stage_, platform_.compositor(), platform_.clickMonitor(),
                                                      platform_.workspace()},
      dropdown_(panelNeighbours_, settingsModel_, engineModel_), confirmation_(panelNeighbours_) {
    settings_.quitDelay.set(0.5);
    history_.preview(sampleEvents(clock_->now()));
    engine_.monitoredCount.set(openApplications);
}

} // namespace ambrel
