#include "Models/RunningAppsModel.h"

#include "Core/MainQueue.h"
#include "Engine/DevGuard.h"
#include "Engine/QuitRequests.h"
#include "Engine/TerminationAudit.h"
#include "Platform/Bundle.h"
#include "Platform/Platform.h"
#include "Platform/Workspace.h"
#include "State/AppRulesStore.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace ambrel {

namespace {

constexpr Seconds refreshDelay{0.4};

bool holds(const std::optional<std::string>& text, const std::string& lowerCasedPart) {
    return text && lowerCased(*text).find(lowerCasedPart) != std::string::npos;
}

} // namespace

RunningAppsModel::RunningAppsModel(Platform& platform, Neighbours neighbours)
    : platform_(platform), neighbours_(neighbours) {
    refresh();
}

void RunningAppsModel::refresh() {
    auto found = platform_.workspace().runningApplications();
    std::erase_if(found, [this](const RunningApplicationRef& app) { return !isListed(*app); });
    apps.set(sorted(std::move(found)));
    forgetGoneSelections();
}

bool RunningAppsModel::isListed(const RunningApplication& app) const {
    const auto identifier = app.bundleIdentifier();
    const bool isOurselves = identifier && identifier == platform_.bundle().bundleIdentifier();
    return app.activationPolicy() == ActivationPolicy::regular && !isOurselves;
}

std::vector<RunningApplicationRef> RunningAppsModel::sorted(std::vector<RunningApplicationRef> found) const {
    using Named = std::pair<std::string, RunningApplicationRef>;
    std::vector<Named> named;
    for (auto& app : found) {
        auto name = app->localizedName().value_or("");
        named.emplace_back(std::move(name), std::move(app));
    }
    std::stable_sort(named.begin(), named.end(), [this](const Named& left, const Named& right) {
        return collation_.isLess(left.first, right.first);
    });
    std::transform(named.begin(), named.end(), found.begin(), [](Named& each) { return std::move(each.second); });
    return found;
}

void RunningAppsModel::forgetGoneSelections() {
    std::set<ProcessId> left;
    for (const auto& app : apps.get()) {
        if (selected.get().contains(app->processIdentifier())) {
            left.insert(app->processIdentifier());
        }
    }
    selected.set(std::move(left));
}

std::vector<RunningApplicationRef> RunningAppsModel::filtered() const {
    auto shown = apps.get();
    const auto part = lowerCased(query.get());
    std::erase_if(shown, [&](const RunningApplicationRef& app) {
        return !part.empty() && !holds(app->localizedName(), part) && !holds(app->bundleIdentifier(), part);
    });
    return shown;
}

void RunningAppsModel::toggleSelected(ProcessId pid) {
    auto changed = selected.get();
    if (changed.erase(pid) == 0) {
        changed.insert(pid);
    }
    selected.set(std::move(changed));
}

void RunningAppsModel::quit(const RunningApplicationRef& app, bool force) {
    if (!neighbours_.guard.mayTerminate(*app, TerminationAudit::Path::manual)) {
        return;
    }
    force ? end(*app) : ask(app);
    platform_.mainQueue().asyncAfter(refreshDelay, lifetime_.guard([this] { refresh(); }));
}

void RunningAppsModel::ask(const RunningApplicationRef& app) {
    neighbours_.requests.ask({.app = app, .path = TerminationAudit::Path::manual, .willSend = [app, log = log_] {
                                  log.notice("running-apps quit {}", app->bundleIdentifier().value_or("?"));
                              }});
}

void RunningAppsModel::end(RunningApplication& app) {
    log_.notice("running-apps force-quit {}", app.bundleIdentifier().value_or("?"));
    neighbours_.audit.record(TerminationAudit::Path::manual, app, TerminationAudit::Action::forceTerminated);
    app.forceTerminate();
}

void RunningAppsModel::quitSelected() {
    // A copy: what quits may refresh the list.
    for (const auto& app : std::vector(apps.get())) {
        if (selected.get().contains(app->processIdentifier())) {
            quit(app, false);
        }
    }
    selected.set({});
}

void RunningAppsModel::addToExcludeList(const RunningApplication& app) {
    const auto identifier = app.bundleIdentifier();
    if (!identifier) {
        return;
    }
    AppRule rule(*identifier, app.localizedName().value_or(*identifier));
    rule.quitOnLastWindowClose = false;
    rule.includedInQuitAll = false;
    neighbours_.rules.upsert(std::move(rule));
}

} // namespace ambrel
