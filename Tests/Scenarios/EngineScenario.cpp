#include "Scenarios/EngineScenario.h"

#include "Engine/QuitEvent.h"

#include <algorithm>

namespace ambrel {

EngineHouse& EngineScenario::house() {
    if (!house_) {
        house_ = std::make_unique<EngineHouse>(desktop);
    }
    return *house_;
}

void EngineScenario::start() {
    engine().start();
    desktop.settle();
    log.clear();
}

simulated::SimulatedApplication& EngineScenario::launchWithWindow(const std::string& bundleID) {
    auto& app = desktop.launch(bundleID, bundleID.substr(bundleID.rfind('.') + 1));
    app.openWindow();
    desktop.advance(1);
    log.clear();
    return app;
}

std::vector<std::string> EngineScenario::engineLines() {
    auto lines = log.texts("engine");
    log.clear();
    return lines;
}

std::vector<std::string> EngineScenario::decisions() {
    house().audit.drain();
    std::vector<std::string> lines;
    for (const auto& event : QuitEvent::loadRecent(house().audit.fileURL(), 1000)) {
        lines.push_back(event.path + " " + event.action + " " + event.name +
                        (event.detail.empty() ? "" : " " + event.detail));
    }
    std::reverse(lines.begin(), lines.end());
    return lines;
}

std::vector<ProcessId> EngineScenario::terminated() const {
    std::vector<ProcessId> pids;
    for (const auto& request : desktop.requests().terminated) {
        pids.push_back(request.pid);
    }
    return pids;
}

void EngineScenario::setRule(const std::string& bundleID, bool quitOnLastWindowClose) {
    chooseRule(bundleID, [&](AppRule& rule) { rule.quitOnLastWindowClose = quitOnLastWindowClose; });
}

void EngineScenario::chooseRule(const std::string& bundleID, const std::function<void(AppRule&)>& choose) {
    AppRule rule(bundleID);
    choose(rule);
    house().rules.upsert(rule);
}

} // namespace ambrel
