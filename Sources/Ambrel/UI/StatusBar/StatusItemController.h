#pragma once

#include "Core/Logger.h"

namespace ambrel {

/// The program's icon in the tray.
class StatusItemController {
public:
    [[nodiscard]] static StatusItemController& shared();

    void install() { log_.notice("the status item is not there yet"); }
    /// Asks before Quit All.
    void showConfirm(bool force);
    /// Acknowledges a Quit All on the icon.
    void pulse() {}

private:
    Logger log_{"ui"};
};

} // namespace ambrel
