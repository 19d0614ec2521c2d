#include "Platform/Linux/LinuxStatusBar.h"

#include "Platform/Linux/LinuxStatusItem.h"

#include <utility>

namespace ambrel {

std::shared_ptr<StatusItem> LinuxStatusBar::makeItem(std::string identifier, std::string title) {
    return std::make_shared<LinuxStatusItem>(services_, panelDidChange, std::move(identifier), std::move(title));
}

} // namespace ambrel
