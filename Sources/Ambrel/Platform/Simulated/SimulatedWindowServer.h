#pragma once

#include "Platform/WindowServer.h"

namespace ambrel::simulated {

class SimulatedWorkspace;

/// Lists the windows of all applications that are on the screen, and what a test adds or takes away.
class SimulatedWindowServer final : public WindowServer {
public:
    explicit SimulatedWindowServer(const SimulatedWorkspace& workspace) : workspace_(workspace) {}

    [[nodiscard]] std::optional<std::vector<WindowInfo>> onScreenWindows(ProcessId owner) const override;
    [[nodiscard]] std::optional<std::vector<Rect>> onlineDisplays(std::size_t limit) const override;

    /// Windows that are listed although no application has them: closed ones in their last animation.
    std::vector<WindowInfo> residue;
    void leaveResidue(ProcessId pid) { residue.push_back({pid, 0, 1.0, Rect{100, 100, 800, 600}}); }

    bool listUnreadable = false;
    /// Absent makes them unreadable.
    std::optional<std::vector<Rect>> displays = std::vector{Rect{0, 0, 1920, 1080}};

private:
    const SimulatedWorkspace& workspace_;
};

} // namespace ambrel::simulated
