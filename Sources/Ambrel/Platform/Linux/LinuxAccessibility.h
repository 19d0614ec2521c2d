#pragma once

#include "Platform/Accessibility.h"
#include "Platform/Linux/WindowSource.h"

#include <unordered_map>
#include <vector>

namespace ambrel {

class LinuxWorkspace;

/// Other applications' windows as a mirror of the desktop shows them; no question goes to an application, so
/// none can keep us waiting.
class LinuxAccessibility final : public Accessibility {
public:
    /// Both must outlive this object. Make it after the workspace, so that its notifications find the
    /// workspace's facts up to date.
    LinuxAccessibility(WindowSource& windows, LinuxWorkspace& workspace);

    [[nodiscard]] bool isProcessTrusted() const override { return windows_.isReadable(); }
    /// The desktop has no prompt of its own.
    bool promptForTrust() override { return windows_.isReadable(); }
    void setMessagingTimeout(Seconds) override {}

    [[nodiscard]] std::unique_ptr<ApplicationElement> createApplication(ProcessId pid) override;
    [[nodiscard]] ObserverCreation createObserver(ProcessId pid, AccessibilityCallback callback) override;

private:
    void windowChanged(const WindowChange& change);
    void post(ProcessId pid, const std::string& notification) const;

    WindowSource& windows_;
    LinuxWorkspace& workspace_;
    std::unordered_map<ProcessId, Signal<const std::string&>> notifications_;
    std::vector<Subscription> subscriptions_;
};

} // namespace ambrel
