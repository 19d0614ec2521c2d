#pragma once

#include "Core/Signal.h"
#include "Platform/RunningApplication.h"

namespace ambrel {

/// The icons in the desktop's tray.
class TrayItems {
public:
    virtual ~TrayItems() = default;

    /// Whether this process has an icon there. Asks nobody.
    [[nodiscard]] virtual bool owns(ProcessId pid) const = 0;

    /// Some process has gained or lost an icon.
    Signal<> didChange;
};

} // namespace ambrel
