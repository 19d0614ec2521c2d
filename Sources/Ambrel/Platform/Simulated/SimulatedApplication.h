#pragma once

#include "Core/MainQueue.h"
#include "Platform/Simulated/RequestLog.h"
#include "Platform/Simulated/SimulatedWindow.h"
#include "Platform/Simulated/TerminateAnswer.h"
#include "Platform/Simulated/WindowFaults.h"

#include <map>
#include <vector>

namespace ambrel::simulated {

class SimulatedWorkspace;

/// The facts of an application, fixed while it runs.
struct ApplicationFacts {
    ProcessId pid = 0;
    std::optional<std::string> bundleIdentifier;
    std::optional<std::string> localizedName;
    std::optional<std::filesystem::path> bundleURL;
    ActivationPolicy policy = ActivationPolicy::regular;
    std::optional<Date> launchDate;
};

/// An application on the simulated desktop: what the program sees of it, and the verbs by which a test makes it (or
/// its user) act. A verb changes the desktop at once; what it causes is delivered in later turns of the main queue.
class SimulatedApplication final : public RunningApplication,
                                   public std::enable_shared_from_this<SimulatedApplication> {
public:
    /// Made by `SimulatedWorkspace::launch`.
    SimulatedApplication(SimulatedWorkspace& workspace, ApplicationFacts facts);

    [[nodiscard]] ProcessId processIdentifier() const override { return facts_.pid; }
    [[nodiscard]] std::optional<std::string> bundleIdentifier() const override { return facts_.bundleIdentifier; }
    [[nodiscard]] std::optional<std::string> localizedName() const override { return facts_.localizedName; }
    [[nodiscard]] std::optional<std::filesystem::path> bundleURL() const override { return facts_.bundleURL; }
    [[nodiscard]] ActivationPolicy activationPolicy() const override { return facts_.policy; }
    [[nodiscard]] bool isTerminated() const override { return terminated_; }
    [[nodiscard]] bool isHidden() const override;
    [[nodiscard]] std::optional<Date> launchDate() const override { return facts_.launchDate; }
    void terminate(std::function<bool()> lastLook, std::function<void(QuitOutcome)> done) override;
    bool forceTerminate() override;
    bool hide() override;

    /// Opens a window, and gives it the focus unless it opens minimised, withdrawn or on another desktop.
    WindowId openWindow(SimulatedWindow window = {});
    WindowId openDialog();
    void closeWindow(WindowId id);
    /// Closes all windows within one turn of the main queue.
    void closeWindows();
    void minimise(WindowId id);
    void restore(WindowId id);
    /// Takes the window off the desktop but keeps it; a dialog is gone with that. If it was the last one, its
    /// application counts as hidden a quarter of a second later, for as long as the window lives.
    void withdraw(WindowId id);
    void map(WindowId id);
    void focusWindow(WindowId id);
    void setKind(WindowId id, WindowKind kind);

    /// The user, or the application, hides it; `hide` is the program's own request.
    void hideItself();
    void show();
    void activate();
    /// Closes all windows, and ends in the turn after.
    void quit();
    /// Ends at once, with all its windows.
    void crash();

    [[nodiscard]] const std::vector<SimulatedWindow>& windows() const { return windows_; }
    /// Null when there is no such window. Changes made through it notify nobody.
    [[nodiscard]] SimulatedWindow* window(WindowId id);
    [[nodiscard]] bool isOnScreen(const SimulatedWindow& window) const;
    [[nodiscard]] bool hasWindowOnScreen() const;
    /// On whatever workspace, minimised or not.
    [[nodiscard]] bool hasWindowOnDesktop() const;
    [[nodiscard]] bool isFrozen() const { return frozen_; }
    /// The process itself was asked to quit, which is done once.
    [[nodiscard]] bool wasSignalled() const { return signalled_; }

    TerminateAnswer terminateAnswer = Quits{};
    /// How long it takes to learn how the application can be asked to quit.
    Seconds questionTime{0};
    WindowFaults faults;
    bool hasTrayItem = false;

private:
    void answer(const Quits& answer);
    void answer(const Lingers& answer);
    void answer(const Refuses&) {}
    void answer(const ShowsSaveDialog&);
    void answer(const Freezes&) { frozen_ = true; }
    void answer(const CannotBeAsked&) {}

    void note(std::vector<Request>& requests, const Signal<const Request&>& announcement);
    void post(WindowEvent event);
    void setHidden(bool hidden);
    void leaveScreen(bool wasOnScreen);
    void hideIfKeptInBackground();
    [[nodiscard]] QuitOutcome request(const std::function<bool()>& lastLook);
    void forgetWithdrawnBefore(Date date);

    SimulatedWorkspace& workspace_;
    ApplicationFacts facts_;
    std::vector<SimulatedWindow> windows_;
    WindowId lastWindow_ = 0;
    bool terminated_ = false;
    bool hidden_ = false;
    bool frozen_ = false;
    bool signalled_ = false;
    bool asking_ = false;
    std::map<WindowId, Date> withdrawn_; ///< those by which its user could bring it back
};

using SimulatedApplicationRef = std::shared_ptr<SimulatedApplication>;

} // namespace ambrel::simulated
