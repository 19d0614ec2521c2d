#include "Platform/Linux/LinuxProcessActivity.h"
#include "Support/ChildProcess.h"

#include <thread>
#include <vector>

#include <benchmark/benchmark.h>

#include <unistd.h>

namespace ambrel {

namespace {

/// One look at a process with this many threads, all at rest.
void lookAtWork(benchmark::State& state) {
    const auto threads = state.range(0);
    ChildProcess child([threads] {
        std::vector<std::jthread> others;
        for (int i = 1; i < threads; ++i) {
            others.emplace_back([] { pause(); });
        }
        pause();
        return 0;
    });
    const LinuxProcessActivity activity;
    std::this_thread::sleep_for(std::chrono::milliseconds(200));
    for (auto step : state) {
        benchmark::DoNotOptimize(activity.work(child.pid(), [](ProcessId) { return false; }));
    }
}
BENCHMARK(lookAtWork)->ArgName("threads")->Arg(1)->Arg(10)->Arg(60);

} // namespace

} // namespace ambrel

BENCHMARK_MAIN();
