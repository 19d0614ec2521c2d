#pragma once

#include "Platform/LoginItem.h"

namespace ambrel::simulated {

/// A registration in memory.
class SimulatedLoginItem final : public LoginItem {
public:
    [[nodiscard]] LoginItemStatus status() const override { return current; }
    LoginItemFailure registerItem() override { return change(afterRegistering); }
    LoginItemFailure unregisterItem() override { return change(LoginItemStatus::notRegistered); }
    LoginItemFailure followProgram() override {
        return current == LoginItemStatus::notFound ? change(LoginItemStatus::enabled) : std::nullopt;
    }

    LoginItemStatus current = LoginItemStatus::notRegistered;
    LoginItemStatus afterRegistering = LoginItemStatus::enabled; ///< what a registration leads to
    LoginItemFailure failure;                                    ///< what every change answers
    int changes = 0;

private:
    LoginItemFailure change(LoginItemStatus status) {
        ++changes;
        if (!failure) {
            current = status;
        }
        return failure;
    }
};

} // namespace ambrel::simulated
