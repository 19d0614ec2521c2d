#pragma once

#include "Contract/DesktopDriver.h"
#include "Platform/Platform.h"
#include "Platform/WindowList.h"
#include "Platform/WindowServer.h"
#include "Platform/Workspace.h"
#include "Support/LoggedTest.h"

#include <utility>
#include <vector>

namespace ambrel {

using SampleRef = std::unique_ptr<SampleApplication>;

/// A test of what every platform must do.
class ContractTest : public LoggedTest {
protected:
    /// A sample whose first window the platform has seen.
    [[nodiscard]] SampleRef launch(const std::optional<SampleIdentity>& identity = editor);
    [[nodiscard]] RunningApplicationRef running(const SampleApplication& sample) const;

    /// Absent when the read fails.
    [[nodiscard]] std::optional<std::vector<ApplicationWindow>> windows(const SampleApplication& sample) const;
    /// Asks the application to quit; what became of it, if that is known already.
    static std::optional<QuitOutcome> terminate(RunningApplication& app, bool allows = true);
    /// Waits until the sample's windows number `count`.
    [[nodiscard]] bool awaitWindows(const SampleApplication& sample, std::size_t count);
    [[nodiscard]] bool awaitFrontmost(const SampleApplication& sample);
    /// What the window server lists of the sample; empty also when it lists nothing at all.
    [[nodiscard]] std::vector<WindowInfo> onScreen(const SampleApplication& sample) const;
    /// A window that isn't off the screen yet can't be asked back onto it.
    [[nodiscard]] bool awaitOffScreen(const SampleApplication& sample);

    std::unique_ptr<DesktopDriver> driver = makeDesktopDriver();
    Platform& platform = driver->platform();
    Workspace& workspace = platform.workspace();
    WindowList& windowList = platform.windowList();
};

/// The workspace's events in the order they came.
class WorkspaceEvents {
public:
    struct Event {
        std::string kind;
        RunningApplicationRef app;
    };

    explicit WorkspaceEvents(Workspace& workspace);

    /// The kinds of the events of one process.
    [[nodiscard]] std::vector<std::string> of(ProcessId pid) const;
    [[nodiscard]] const Event* find(const std::string& kind, ProcessId pid) const;

    std::vector<Event> all;

private:
    std::vector<Subscription> subscriptions_;
};

} // namespace ambrel
