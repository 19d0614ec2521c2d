#include "UI/Models/LoginSwitch.h"

#include "State/LaunchAtLogin.h"

#include <utility>

namespace ambrel {

void LoginSwitch::refresh() {
    const bool now = LaunchAtLogin::isEnabled(item_);
    if (std::exchange(isEnabled_, now) != now) {
        isEnabledChanged();
    }
}

void LoginSwitch::set(bool value) {
    LaunchAtLogin::setEnabled(item_, value);
    refresh();
}

} // namespace ambrel
