#pragma once

#include "Engine/DevGuard.h"
#include "Engine/QuitAll.h"
#include "Engine/QuitEngine.h"
#include "Engine/QuitNotifier.h"
#include "Engine/QuitRequests.h"
#include "Engine/SystemState.h"
#include "Engine/WindowOracle.h"
#include "Platform/AppClock.h"
#include "Platform/Platform.h"
#include "State/AppRulesStore.h"
#include "State/AppSettings.h"

#include <memory>

namespace ambrel {

/// The engine and all its neighbours over one platform, as `main` would build them for a whole process.
struct EngineHouse {
    explicit EngineHouse(Platform& platform)
        : clock(AppClock::choose(platform.environment(), platform.wallClock())),
          settings(platform.userDefaults().productSuite(), platform.bundle()), rules(platform, *clock),
          systemState(platform.environment(), platform.session()), audit(platform, *clock), guard(platform, audit),
          oracle(platform.windowServer()), notifier(platform, settings), requests(platform, audit, notifier),
          engine(platform, {settings, rules, systemState, guard, oracle, audit, notifier, requests, *clock}),
          quitAll(platform, rules, guard, audit, requests) {}

    std::unique_ptr<Clock> clock;
    AppSettings settings;
    AppRulesStore rules;
    SystemState systemState;
    TerminationAudit audit;
    DevGuard guard;
    WindowOracle oracle;
    QuitNotifier notifier;
    QuitRequests requests;
    QuitEngine engine;
    QuitAll quitAll;
};

} // namespace ambrel
