#pragma once

#include "Core/Lifetime.h"
#include "Core/MainQueue.h"
#include "Platform/Linux/ApplicationIdentity.h"
#include "Platform/Linux/ApplicationVisibility.h"
#include "Platform/Linux/QuitRequest.h"
#include "Platform/Linux/WindowSource.h"
#include "Platform/RunningApplication.h"

#include <memory>
#include <optional>
#include <vector>

namespace ambrel {

class Process;
class TrayItems;

/// What every application works with; outlives them all.
struct ApplicationServices {
    WindowSource& windows;
    TrayItems& tray;
    QuitRequest& quitRequest;
    MainQueue& queue;
};

/// One process with windows, or one that has had some.
class LinuxApplication final : public RunningApplication, public std::enable_shared_from_this<LinuxApplication> {
public:
    using Transition = ApplicationVisibility::Transition;

    LinuxApplication(ApplicationServices services, std::shared_ptr<Process> process);

    [[nodiscard]] ProcessId processIdentifier() const override;
    [[nodiscard]] std::optional<std::string> bundleIdentifier() const override { return identity_.bundleIdentifier; }
    [[nodiscard]] std::optional<std::string> localizedName() const override { return identity_.localizedName; }
    [[nodiscard]] std::optional<std::filesystem::path> bundleURL() const override { return identity_.entry; }
    [[nodiscard]] ActivationPolicy activationPolicy() const override;
    [[nodiscard]] bool isTerminated() const override;
    [[nodiscard]] bool isHidden() const override { return visibility_.isHidden(); }
    [[nodiscard]] std::optional<Date> launchDate() const override;

    /// Without a window on the desktop the process is asked itself. With windows, each is asked to close, and the
    /// process once they are gone and it has had time to end by itself, unless it shows another window first.
    void terminate(std::function<bool()> lastLook, std::function<void(QuitOutcome)> done) override;
    bool forceTerminate() override;
    bool hide() override;

    void setIdentity(ApplicationIdentity identity) { identity_ = std::move(identity); }
    void setQuitAction(QuitActionAddress address) { quitAction_ = std::move(address); }
    /// It has shown its first standard window.
    void setLaunched() { launched_ = true; }
    [[nodiscard]] bool isLaunched() const { return launched_; }

    /// Takes in a change of its windows.
    void windowChanged(const WindowChange& change);
    /// Takes in a change of the tray, its own or another's.
    void trayChanged();
    /// Judges anew whether it is hidden.
    void judgeVisibility();

    /// It has been hidden or shown.
    Signal<Transition> visibilityDidChange;

private:
    [[nodiscard]] std::vector<DesktopWindow> windows() const;
    [[nodiscard]] std::vector<DesktopWindow> windowsOnDesktop() const;
    void settled();
    void announce(Transition transition);
    void askProcess(std::function<bool()> lastLook, std::function<void(QuitOutcome)> done);
    void askWindows(const std::vector<DesktopWindow>& open);
    void followUp();
    void forgetTermination();

    ApplicationServices services_;
    std::shared_ptr<Process> process_;
    ApplicationIdentity identity_;
    std::optional<QuitActionAddress> quitAction_;
    ApplicationVisibility visibility_;
    bool launched_ = false;
    bool ownsTrayItem_ = false;
    WorkItemRef terminationLapse_; ///< set while a request to quit waits for the windows to go
    WorkItemRef followUp_;
    WorkItemRef hidingLapse_;
    WorkItemRef settling_;
    Lifetime lifetime_;
};

} // namespace ambrel
