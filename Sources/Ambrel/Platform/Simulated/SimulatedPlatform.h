#pragma once

#include "Platform/Platform.h"
#include "Platform/Simulated/SimulatedAppearance.h"
#include "Platform/Simulated/SimulatedApplicationHost.h"
#include "Platform/Simulated/SimulatedBackgroundQueue.h"
#include "Platform/Simulated/SimulatedBundle.h"
#include "Platform/Simulated/SimulatedClickMonitor.h"
#include "Platform/Simulated/SimulatedCompositor.h"
#include "Platform/Simulated/SimulatedEnvironment.h"
#include "Platform/Simulated/SimulatedFileLocations.h"
#include "Platform/Simulated/SimulatedHotKeyCenter.h"
#include "Platform/Simulated/SimulatedLoginItem.h"
#include "Platform/Simulated/SimulatedNotificationCenter.h"
#include "Platform/Simulated/SimulatedOccupations.h"
#include "Platform/Simulated/SimulatedProcessActivity.h"
#include "Platform/Simulated/SimulatedSession.h"
#include "Platform/Simulated/SimulatedStatusBar.h"
#include "Platform/Simulated/SimulatedUpdater.h"
#include "Platform/Simulated/SimulatedUserDefaults.h"
#include "Platform/Simulated/SimulatedWindowList.h"
#include "Platform/Simulated/SimulatedWindowServer.h"
#include "Platform/Simulated/SimulatedWorkspace.h"
#include "Platform/Simulated/VirtualMainQueue.h"

namespace ambrel::simulated {

/// A whole desktop in memory, under a virtual clock. Nothing happens on it but what a test makes happen.
class SimulatedPlatform final : public Platform {
public:
    /// Files lie in the folders `config` and `state` of `home`; they are the only thing that isn't simulated.
    explicit SimulatedPlatform(const std::filesystem::path& home);

    [[nodiscard]] SimulatedWorkspace& workspace() override { return workspace_; }
    [[nodiscard]] SimulatedWindowList& windowList() override { return windowList_; }
    [[nodiscard]] SimulatedWindowServer& windowServer() override { return windowServer_; }
    [[nodiscard]] SimulatedProcessActivity& processActivity() { return processActivity_; }
    [[nodiscard]] const SimulatedProcessActivity& processActivity() const override { return processActivity_; }
    [[nodiscard]] SimulatedOccupations& occupations() override { return occupations_; }
    [[nodiscard]] SimulatedUserDefaults& userDefaults() override { return userDefaults_; }
    [[nodiscard]] SimulatedBundle& bundle() override { return bundle_; }
    [[nodiscard]] SimulatedFileLocations& fileLocations() override { return fileLocations_; }
    [[nodiscard]] SimulatedEnvironment& environment() override { return environment_; }
    [[nodiscard]] SimulatedApplicationHost& application() override { return application_; }
    [[nodiscard]] VirtualMainQueue& mainQueue() override { return queue_; }
    [[nodiscard]] SimulatedBackgroundQueue& backgroundQueue() override { return backgroundQueue_; }
    [[nodiscard]] SimulatedSession& session() override { return session_; }
    [[nodiscard]] SimulatedHotKeyCenter& hotKeyCenter() override { return hotKeyCenter_; }
    [[nodiscard]] SimulatedNotificationCenter& notificationCenter() override { return notificationCenter_; }
    [[nodiscard]] SimulatedStatusBar& statusBar() override { return statusBar_; }
    [[nodiscard]] SimulatedLoginItem& loginItem() override { return loginItem_; }
    [[nodiscard]] SimulatedUpdater& updater() override { return updater_; }
    [[nodiscard]] SimulatedAppearance& appearance() override { return appearance_; }
    [[nodiscard]] SimulatedClickMonitor& clickMonitor() override { return clickMonitor_; }
    [[nodiscard]] SimulatedCompositor& compositor() override { return compositor_; }
    [[nodiscard]] const Clock& wallClock() const override { return queue_.wallClock(); }
    [[nodiscard]] const MonotonicClock& monotonicClock() const override { return queue_.monotonicClock(); }

    /// Shorthands for what tests do all the time.
    SimulatedApplication& launch(std::optional<std::string> bundleIdentifier, const std::string& name,
                                 const LaunchOptions& options = {}) {
        return workspace_.launch(std::move(bundleIdentifier), name, options);
    }
    void advance(double seconds) { queue_.advance(Seconds(seconds)); }
    void settle() { queue_.settle(); }
    [[nodiscard]] const RequestLog& requests() const { return workspace_.requests; }

private:
    VirtualMainQueue queue_;
    SimulatedWorkspace workspace_;
    SimulatedWindowList windowList_;
    SimulatedWindowServer windowServer_;
    SimulatedProcessActivity processActivity_{workspace_};
    SimulatedOccupations occupations_{queue_};
    SimulatedUserDefaults userDefaults_;
    SimulatedBundle bundle_;
    SimulatedFileLocations fileLocations_;
    SimulatedEnvironment environment_;
    SimulatedApplicationHost application_;
    SimulatedBackgroundQueue backgroundQueue_;
    SimulatedSession session_;
    SimulatedHotKeyCenter hotKeyCenter_;
    SimulatedNotificationCenter notificationCenter_;
    SimulatedAppearance appearance_;
    SimulatedStatusBar statusBar_;
    SimulatedLoginItem loginItem_;
    SimulatedUpdater updater_;
    SimulatedClickMonitor clickMonitor_;
    SimulatedCompositor compositor_;
};

} // namespace ambrel::simulated
