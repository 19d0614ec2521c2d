#pragma once

#include "Platform/Accessibility.h"

namespace ambrel::simulated {

class SimulatedWorkspace;

class SimulatedAccessibility final : public Accessibility {
public:
    explicit SimulatedAccessibility(SimulatedWorkspace& workspace) : workspace_(workspace) {}

    [[nodiscard]] bool isProcessTrusted() const override { return trusted_; }
    bool promptForTrust() override {
        ++prompts;
        return trusted_;
    }
    void setMessagingTimeout(Seconds timeout) override { messagingTimeout = timeout; }
    [[nodiscard]] std::unique_ptr<ApplicationElement> createApplication(ProcessId pid) override;
    [[nodiscard]] ObserverCreation createObserver(ProcessId pid, AccessibilityCallback callback) override;

    /// The desktop gives or takes its trust. Without it no application's windows can be read.
    void setTrusted(bool trusted);

    std::optional<Seconds> messagingTimeout;
    int prompts = 0;

private:
    class Element;

    SimulatedWorkspace& workspace_;
    bool trusted_ = true;
};

} // namespace ambrel::simulated
