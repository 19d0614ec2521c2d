#pragma once

#include "Platform/WindowList.h"

namespace ambrel::simulated {

class SimulatedWorkspace;

class SimulatedWindowList final : public WindowList {
public:
    explicit SimulatedWindowList(SimulatedWorkspace& workspace);

    [[nodiscard]] bool isReadable() const override;
    [[nodiscard]] WindowsReading reading(ProcessId pid) const override;

    /// The window manager goes or comes. Without one no application's windows can be read.
    void setReadable(bool readable);

private:
    SimulatedWorkspace& workspace_;
    std::vector<Subscription> subscriptions_;
};

} // namespace ambrel::simulated
