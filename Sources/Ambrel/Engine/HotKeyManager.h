#pragma once

#include "Core/Logger.h"

#include <cstdint>
#include <functional>

namespace ambrel {

/// Owns the one global key combination.
class HotKeyManager {
public:
    [[nodiscard]] static HotKeyManager& shared();

    /// Replaces any registration with this one.
    void registerHotKey(std::uint32_t keyCode, std::uint32_t carbonModifiers);
    void unregisterHotKey() {}

    std::function<void()> onTrigger;

private:
    Logger log_{"hotkey"};
};

} // namespace ambrel
