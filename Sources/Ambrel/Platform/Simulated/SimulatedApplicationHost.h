#pragma once

#include "Core/MainQueue.h"
#include "Platform/ApplicationHost.h"

namespace ambrel::simulated {

/// The program's own process on the simulated desktop.
class SimulatedApplicationHost final : public ApplicationHost {
public:
    explicit SimulatedApplicationHost(MainQueue& queue) : queue_(queue) {}

    [[nodiscard]] ActivationPolicy activationPolicy() const override { return policy; }
    void setActivationPolicy(ActivationPolicy value) override { policy = value; }
    [[nodiscard]] bool hasVisibleTitledWindow() const override { return visibleTitledWindow; }
    void terminate() override {
        queue_.async([this] { terminated = true; });
    }

    /// The user starts the program again while it runs.
    void reopen() {
        queue_.async([this] { didReopen.emit(); });
    }

    ActivationPolicy policy = ActivationPolicy::accessory;
    bool visibleTitledWindow = false;
    bool terminated = false; ///< the process has ended itself

private:
    MainQueue& queue_;
};

} // namespace ambrel::simulated
