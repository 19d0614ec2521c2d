#pragma once

#include "Core/Logger.h"
#include "Platform/HotKeyCenter.h"

#include <cstdint>
#include <functional>
#include <memory>

namespace ambrel {

/// Owns the one global key combination. Main thread only.
class HotKeyManager {
public:
    [[nodiscard]] static HotKeyManager& shared();

    explicit HotKeyManager(HotKeyCenter& center) : center_(center) {}

    /// Replaces any registration with this one.
    void registerHotKey(std::uint32_t keyCode, std::uint32_t carbonModifiers);
    void unregisterHotKey() { registration_.reset(); }

    /// Called at each press; stays in place whether or not a combination is registered.
    std::function<void()> onTrigger;

private:
    void pressed() const;

    HotKeyCenter& center_;
    std::unique_ptr<HotKeyRegistration> registration_;
    Logger log_{"hotkey"};
};

} // namespace ambrel
