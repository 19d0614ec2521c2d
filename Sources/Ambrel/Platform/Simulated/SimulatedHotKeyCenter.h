#pragma once

#include "Platform/HotKeyCenter.h"

#include <optional>

namespace ambrel::simulated {

/// A keyboard with room for the one combination that this program registers.
class SimulatedHotKeyCenter final : public HotKeyCenter {
public:
    [[nodiscard]] HotKeyResult registerHotKey(HotKey key, std::function<void()> onPress) override;

    /// The user presses `key`, whichever application is in front.
    void press(HotKey key) const;
    [[nodiscard]] int registrations() const { return registrations_; }

    std::int32_t status = 0; ///< what the next registration answers

private:
    class Registration;

    int registrations_ = 0;
    std::optional<HotKey> key_;
    std::function<void()> onPress_;
};

} // namespace ambrel::simulated
