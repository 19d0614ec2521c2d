#pragma once

#include "Platform/ApplicationHost.h"

#include <functional>

namespace ambrel {

class ProgramPresence;

/// This process, with a name on the session bus and windows that somebody else may own. SIGTERM and SIGINT end it
/// as `terminate` does; the second one of a kind ends it at once.
class LinuxApplicationHost final : public ApplicationHost {
public:
    /// `presence` must outlive this object. There can be one host at a time.
    explicit LinuxApplicationHost(ProgramPresence& presence);
    LinuxApplicationHost(const LinuxApplicationHost&) = delete;
    LinuxApplicationHost& operator=(const LinuxApplicationHost&) = delete;
    ~LinuxApplicationHost() override;

    [[nodiscard]] ActivationPolicy activationPolicy() const override { return policy_; }
    void setActivationPolicy(ActivationPolicy policy) override;
    [[nodiscard]] bool hasVisibleTitledWindow() const override;
    void terminate() override;

    /// Windows belong to the user interface: it answers whether one with a title is visible.
    void setWindowQuestion(std::function<bool()> question) { windowQuestion_ = std::move(question); }

    /// The program is opened again, in a way that only its task bar entry hears of.
    void reopen() { didReopen.emit(); }

    /// The policy has been set, perhaps to what it was: with each window that comes or goes.
    Signal<> policyDidSet;

private:
    ActivationPolicy policy_ = ActivationPolicy::accessory;
    std::function<bool()> windowQuestion_;
    Subscription reopening_;
};

} // namespace ambrel
