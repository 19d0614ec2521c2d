#include "Platform/Simulated/SimulatedWorkspace.h"

#include <algorithm>

namespace ambrel::simulated {

SimulatedWorkspace::SimulatedWorkspace(VirtualMainQueue& queue, std::filesystem::path home)
    : queue_(queue), home_(std::move(home)) {}

std::vector<RunningApplicationRef> SimulatedWorkspace::runningApplications() const {
    return {applications_.begin(), applications_.end()};
}

SimulatedApplicationRef SimulatedWorkspace::find(ProcessId pid) const {
    const auto found = std::find_if(applications_.begin(), applications_.end(),
                                    [pid](const auto& app) { return app->processIdentifier() == pid; });
    return found == applications_.end() ? nullptr : *found;
}

RunningApplicationRef SimulatedWorkspace::runningApplication(ProcessId pid) const {
    return find(pid);
}

std::vector<RunningApplicationRef>
SimulatedWorkspace::runningApplicationsWithBundleIdentifier(const std::string& bundleIdentifier) const {
    std::vector<RunningApplicationRef> matching;
    std::copy_if(applications_.begin(), applications_.end(), std::back_inserter(matching),
                 [&](const auto& app) { return app->bundleIdentifier() == bundleIdentifier; });
    return matching;
}

std::optional<InstalledApplication>
SimulatedWorkspace::installedApplication(const std::string& bundleIdentifier) const {
    const auto found = installed_.find(bundleIdentifier);
    return found == installed_.end() ? std::nullopt : std::optional(found->second);
}

std::vector<InstalledApplication> SimulatedWorkspace::installedApplications() const {
    std::vector<InstalledApplication> all;
    for (const auto& [identifier, application] : installed_) {
        all.push_back(application);
    }
    return all;
}

InstalledApplication SimulatedWorkspace::install(const std::string& bundleIdentifier, const std::string& name) {
    InstalledApplication application{
        .url = home_ / "apps" / (name + ".desktop"), .displayName = name, .bundleIdentifier = bundleIdentifier};
    return installed_.insert_or_assign(bundleIdentifier, std::move(application)).first->second;
}

void SimulatedWorkspace::openApplication(const std::filesystem::path& url) {
    opened.push_back(url);
    for (const auto& app : applications_) {
        if (app->bundleURL() == url) {
            return app->activate();
        }
    }
    for (const auto& [identifier, application] : installed_) {
        if (application.url == url) {
            launch(identifier, application.displayName);
            return;
        }
    }
}

SimulatedApplication& SimulatedWorkspace::launch(std::optional<std::string> bundleIdentifier, const std::string& name,
                                                 const LaunchOptions& options) {
    ApplicationFacts facts{.pid = options.pid ? *options.pid : ++lastPID_,
                           .bundleIdentifier = std::move(bundleIdentifier),
                           .localizedName = name,
                           .bundleURL = std::nullopt,
                           .policy = options.policy,
                           .launchDate = options.launchDate.value_or(queue_.now())};
    if (facts.bundleIdentifier) {
        const auto known = installedApplication(*facts.bundleIdentifier);
        facts.bundleURL = known ? known->url : install(*facts.bundleIdentifier, name).url;
    }
    applications_.push_back(std::make_shared<SimulatedApplication>(*this, std::move(facts)));
    announce(didLaunch, applications_.back());
    return *applications_.back();
}

void SimulatedWorkspace::announce(Signal<const RunningApplicationRef&>& event, RunningApplicationRef app) {
    queue_.async([&event, app = std::move(app)] { event.emit(app); });
}

void SimulatedWorkspace::focus(const SimulatedApplicationRef& app) {
    std::erase(focusHistory_, app);
    focusHistory_.push_back(app);
    setFront(app);
}

void SimulatedWorkspace::passFocusOn(const SimulatedApplication& app) {
    if (front_.get() != &app) {
        return;
    }
    const auto next = std::find_if(focusHistory_.rbegin(), focusHistory_.rend(),
                                   [&](const auto& each) { return each.get() != &app && each->hasWindowOnScreen(); });
    setFront(next == focusHistory_.rend() ? nullptr : *next);
}

void SimulatedWorkspace::setFront(SimulatedApplicationRef app) {
    if (front_ == app) {
        return;
    }
    if (front_) {
        announce(didDeactivate, front_);
    }
    front_ = std::move(app);
    if (front_) {
        announce(didActivate, front_);
    }
}

void SimulatedWorkspace::remove(const SimulatedApplicationRef& app) {
    passFocusOn(*app);
    std::erase(focusHistory_, app);
    ended_.push_back(app);
    announce(didTerminate, app);
    std::erase(applications_, ended_.back());
}

} // namespace ambrel::simulated
