#include "UI/Models/HotKeySwitch.h"

#include "Engine/HotKeyManager.h"
#include "Engine/QuitAllHotKey.h"
#include "State/AppSettings.h"

namespace ambrel {

void HotKeySwitch::set(bool value) {
    settings_.quitAllHotKeyEnabled.set(value);
    if (value) {
        hotKeys_.registerHotKey(quitAllHotKey.keyCode, quitAllHotKey.carbonModifiers);
    } else {
        hotKeys_.unregisterHotKey();
    }
}

} // namespace ambrel
