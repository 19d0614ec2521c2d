#pragma once

#include "Core/Logger.h"

namespace ambrel {

/// Looks for newer versions; its creation alone starts that.
class UpdateController {
public:
    [[nodiscard]] static UpdateController& shared();

    UpdateController() { Logger("update").notice("looking for updates is not there yet"); }
};

} // namespace ambrel
