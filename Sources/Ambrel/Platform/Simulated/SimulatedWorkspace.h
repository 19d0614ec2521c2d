#pragma once

#include "Platform/Simulated/RequestLog.h"
#include "Platform/Simulated/SimulatedApplication.h"
#include "Platform/Simulated/VirtualMainQueue.h"
#include "Platform/Workspace.h"

#include <map>

namespace ambrel::simulated {

/// What is unusual about one launch.
struct LaunchOptions {
    ActivationPolicy policy = ActivationPolicy::regular;
    /// A new one unless given; that of an ended application reuses it.
    std::optional<ProcessId> pid = std::nullopt;
    std::optional<Date> launchDate = std::nullopt; ///< now unless given
};

class SimulatedWorkspace final : public Workspace {
public:
    /// `home` holds the folder of installed applications.
    SimulatedWorkspace(VirtualMainQueue& queue, std::filesystem::path home);

    [[nodiscard]] std::vector<RunningApplicationRef> runningApplications() const override;
    [[nodiscard]] RunningApplicationRef runningApplication(ProcessId pid) const override;
    [[nodiscard]] std::vector<RunningApplicationRef>
    runningApplicationsWithBundleIdentifier(const std::string& bundleIdentifier) const override;
    [[nodiscard]] RunningApplicationRef frontmostApplication() const override { return front_; }
    [[nodiscard]] bool processExists(ProcessId pid) const override { return find(pid) != nullptr; }
    [[nodiscard]] ProcessId currentProcessIdentifier() const override { return ownPID; }
    [[nodiscard]] std::optional<InstalledApplication>
    installedApplication(const std::string& bundleIdentifier) const override;
    [[nodiscard]] std::vector<InstalledApplication> installedApplications() const override;
    /// Activates the application if it runs, else launches it. Notes the request in any case.
    void openApplication(const std::filesystem::path& url) override;
    void openURL(const std::string& url) override { links.push_back(url); }
    void revealFile(const std::filesystem::path& file) override { revealed.push_back(file); }

    InstalledApplication install(const std::string& bundleIdentifier, const std::string& name);
    void uninstall(const std::string& bundleIdentifier) { installed_.erase(bundleIdentifier); }
    /// Starts a process, installed first if it has an identifier. It owns no window yet.
    SimulatedApplication& launch(std::optional<std::string> bundleIdentifier, const std::string& name,
                                 const LaunchOptions& options = {});

    [[nodiscard]] VirtualMainQueue& queue() { return queue_; }
    [[nodiscard]] const std::vector<SimulatedApplicationRef>& applications() const { return applications_; }
    /// Null when no application that runs has this process id.
    [[nodiscard]] SimulatedApplicationRef find(ProcessId pid) const;

    RequestLog requests;
    std::vector<std::filesystem::path> opened; ///< what `openApplication` was asked for
    std::vector<std::string> links;            ///< what `openURL` was asked for
    std::vector<std::filesystem::path> revealed;
    ProcessId ownPID = 1000;

    /// Where the windows' events come out.
    Signal<ProcessId, WindowEvent> windowEvent;
    /// The window manager answers no request to iconify.
    bool refusesToIconify = false;
    bool hasWindowManager = true;

    // What applications do to the desktop around them.
    void announce(Signal<const RunningApplicationRef&>& event, RunningApplicationRef app);
    void focus(const SimulatedApplicationRef& app);
    /// The application can't hold the focus any more: the latest one before it that can gets it.
    void passFocusOn(const SimulatedApplication& app);
    void remove(const SimulatedApplicationRef& app);

private:
    void setFront(SimulatedApplicationRef app);

    VirtualMainQueue& queue_;
    std::filesystem::path home_;
    std::map<std::string, InstalledApplication> installed_;
    std::vector<SimulatedApplicationRef> applications_;
    std::vector<SimulatedApplicationRef> focusHistory_; ///< latest last
    SimulatedApplicationRef front_;
    ProcessId lastPID_ = 2000;
    /// Test code holds references to applications that may have ended.
    std::vector<SimulatedApplicationRef> ended_;
};

} // namespace ambrel::simulated
