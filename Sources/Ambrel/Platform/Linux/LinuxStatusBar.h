#pragma once

#include "Platform/StatusBar.h"

namespace ambrel {

/// The tray of the desktop. It shows nothing yet: items only keep what they are told.
class LinuxStatusBar final : public StatusBar {
public:
    [[nodiscard]] std::shared_ptr<StatusItem> makeItem(std::string identifier, std::string title) override;
};

} // namespace ambrel
