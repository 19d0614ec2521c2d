#pragma once

#include "Platform/Linux/WindowSource.h"

#include <vector>

namespace ambrel {

class LinuxWorkspace;

/// Other applications' windows as a mirror of the desktop shows them; no question goes to an application, so
/// none can keep us waiting.
class LinuxWindowList final : public WindowList {
public:
    /// Both must outlive this object. Make it after the workspace, so that its observers find the workspace's facts
    /// up to date.
    LinuxWindowList(WindowSource& windows, LinuxWorkspace& workspace);

    [[nodiscard]] bool isReadable() const override { return windows_.isReadable(); }
    [[nodiscard]] WindowsReading reading(ProcessId pid) const override;

private:
    WindowSource& windows_;
    LinuxWorkspace& workspace_;
    std::vector<Subscription> subscriptions_;
};

} // namespace ambrel
