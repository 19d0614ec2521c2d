#include "Engine/HotKeyManager.h"

namespace ambrel {

HotKeyManager& HotKeyManager::shared() {
    static auto& manager = *new HotKeyManager;
    return manager;
}

void HotKeyManager::registerHotKey(std::uint32_t /*keyCode*/, std::uint32_t /*carbonModifiers*/) {
    log_.notice("the global hotkey is not there yet");
}

} // namespace ambrel
