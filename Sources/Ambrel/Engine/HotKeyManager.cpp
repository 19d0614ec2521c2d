#include "Engine/HotKeyManager.h"

#include "Platform/Platform.h"

namespace ambrel {

HotKeyManager& HotKeyManager::shared() {
    static auto& manager = *new HotKeyManager(Platform::shared().hotKeyCenter());
    return manager;
}

void HotKeyManager::registerHotKey(std::uint32_t keyCode, std::uint32_t carbonModifiers) {
    unregisterHotKey();
    auto result = center_.registerHotKey({keyCode, carbonModifiers}, [this] { pressed(); });
    if (result.status != 0) {
        log_.error("RegisterEventHotKey failed: {}", result.status);
        return;
    }
    registration_ = std::move(result.registration);
    log_.notice("registered global hotkey (keyCode {})", keyCode);
}

void HotKeyManager::pressed() const {
    if (onTrigger) {
        onTrigger();
    }
}

} // namespace ambrel
