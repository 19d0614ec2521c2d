#pragma once

#include "Core/Logger.h"

namespace ambrel {

/// The settings window.
class SettingsWindowController {
public:
    [[nodiscard]] static SettingsWindowController& shared();

    void show() { log_.notice("the settings window is not there yet"); }

private:
    Logger log_{"ui"};
};

} // namespace ambrel
