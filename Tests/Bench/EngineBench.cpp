#include "Platform/Simulated/SimulatedPlatform.h"
#include "Scenarios/EngineHouse.h"
#include "Support/TemporaryFolder.h"

#include <string>

#include <benchmark/benchmark.h>

namespace ambrel {
namespace {

/// A desktop with `apps` applications of one window each and `rules` rules of other applications, the engine running.
struct BusyDesktop {
    BusyDesktop(std::int64_t apps, std::int64_t rules) {
        for (std::int64_t i = 0; i < rules; ++i) {
            house.rules.upsert(AppRule("org.example.Stored" + std::to_string(i)));
        }
        for (std::int64_t i = 0; i < apps; ++i) {
            desktop.launch("org.example.App" + std::to_string(i), "App").openWindow();
        }
        desktop.settle();
        house.engine.start();
        desktop.settle();
    }

    TemporaryFolder home;
    simulated::SimulatedPlatform desktop{home.path()};
    EngineHouse house{desktop};
};

/// One window opens and closes beside another that stays: two events, two recounts, two evaluations.
void windowEvent(benchmark::State& state) {
    BusyDesktop busy(state.range(0), state.range(1));
    auto& app = busy.desktop.launch("org.example.Editor", "Editor");
    app.openWindow();
    busy.desktop.advance(1);
    for (auto step : state) {
        app.closeWindow(app.openWindow());
        busy.desktop.settle();
    }
}
BENCHMARK(windowEvent)->ArgNames({"apps", "rules"})->ArgsProduct({{1, 100, 1000}, {0, 1000}});

/// One recount of an application with many windows.
void recount(benchmark::State& state) {
    BusyDesktop busy(1, 0);
    auto& app = busy.desktop.launch("org.example.Editor", "Editor");
    for (std::int64_t i = 0; i < state.range(0); ++i) {
        app.openWindow();
    }
    busy.desktop.advance(1);
    for (auto step : state) {
        benchmark::DoNotOptimize(busy.desktop.windowList().reading(app.processIdentifier()));
    }
    state.SetComplexityN(state.range(0));
}
BENCHMARK(recount)->ArgName("windows")->RangeMultiplier(4)->Range(1, 256)->Complexity(benchmark::oN);

/// One turn of the idle monitor. Rules of other applications are passed by on the way to each application's own.
void idleEvaluation(benchmark::State& state) {
    BusyDesktop busy(state.range(0), state.range(1));
    busy.desktop.advance(1);
    for (auto step : state) {
        busy.desktop.advance(30);
    }
}
BENCHMARK(idleEvaluation)->ArgNames({"apps", "rules"})->ArgsProduct({{100, 1000}, {0, 100, 1000}});

/// From the hotkey to the last of the requests, which the applications refuse.
void quitAll(benchmark::State& state) {
    BusyDesktop busy(state.range(0), 0);
    for (const auto& app : busy.desktop.workspace().applications()) {
        app->terminateAnswer = simulated::Refuses{};
    }
    for (auto step : state) {
        busy.house.quitAll.run(false);
    }
}
BENCHMARK(quitAll)->ArgName("apps")->Arg(200)->UseRealTime();

} // namespace
} // namespace ambrel

BENCHMARK_MAIN();
