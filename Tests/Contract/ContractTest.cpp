#include "Contract/ContractTest.h"

#include <algorithm>
#include <stdexcept>

namespace ambrel {

SampleRef ContractTest::launch(const std::optional<SampleIdentity>& identity) {
    auto sample = driver->launch(identity);
    const bool appeared = driver->waitUntil([&] { return running(*sample) != nullptr; }) && awaitWindows(*sample, 1);
    if (!appeared) {
        // Ends this test alone: nothing after it would make sense without the sample.
        throw std::runtime_error("the sample never appeared");
    }
    return sample;
}

RunningApplicationRef ContractTest::running(const SampleApplication& sample) const {
    return workspace.runningApplication(sample.pid());
}

std::optional<std::vector<ApplicationWindow>> ContractTest::windows(const SampleApplication& sample) const {
    const auto reading = windowList.reading(sample.pid());
    const auto* const read = std::get_if<std::vector<ApplicationWindow>>(&reading);
    return read != nullptr ? std::optional(*read) : std::nullopt;
}

std::optional<QuitOutcome> ContractTest::terminate(RunningApplication& app, bool allows) {
    const auto outcome = std::make_shared<std::optional<QuitOutcome>>();
    app.terminate([allows] { return allows; }, [outcome](QuitOutcome known) { *outcome = known; });
    return *outcome;
}

bool ContractTest::awaitWindows(const SampleApplication& sample, std::size_t count) {
    return driver->waitUntil([&] {
        const auto now = windows(sample);
        return now && now->size() == count;
    });
}

bool ContractTest::awaitFrontmost(const SampleApplication& sample) {
    return driver->waitUntil([&] {
        const auto front = workspace.frontmostApplication();
        return front && front->processIdentifier() == sample.pid();
    });
}

std::vector<WindowInfo> ContractTest::onScreen(const SampleApplication& sample) const {
    auto list = platform.windowServer().onScreenWindows(sample.pid()).value_or(std::vector<WindowInfo>());
    std::erase_if(list, [&](const WindowInfo& window) { return window.ownerPID != sample.pid(); });
    return list;
}

bool ContractTest::awaitOffScreen(const SampleApplication& sample) {
    return driver->waitUntil([&] { return onScreen(sample).empty(); });
}

WorkspaceEvents::WorkspaceEvents(Workspace& workspace) {
    const auto note = [&](auto& signal, const char* kind) {
        subscriptions_.push_back(signal.subscribe([this, kind](const RunningApplicationRef& app) {
            all.push_back({kind, app});
        }));
    };
    note(workspace.didLaunch, "launch");
    note(workspace.didTerminate, "terminate");
    note(workspace.didHide, "hide");
    note(workspace.didActivate, "activate");
    note(workspace.didDeactivate, "deactivate");
}

std::vector<std::string> WorkspaceEvents::of(ProcessId pid) const {
    std::vector<std::string> kinds;
    for (const auto& event : all) {
        if (event.app->processIdentifier() == pid) {
            kinds.push_back(event.kind);
        }
    }
    return kinds;
}

const WorkspaceEvents::Event* WorkspaceEvents::find(const std::string& kind, ProcessId pid) const {
    const auto found = std::find_if(all.begin(), all.end(), [&](const Event& event) {
        return event.kind == kind && event.app->processIdentifier() == pid;
    });
    return found == all.end() ? nullptr : &*found;
}

} // namespace ambrel
