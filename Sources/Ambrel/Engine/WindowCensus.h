#pragma once

#include "Platform/WindowList.h"

#include <cstddef>
#include <vector>

namespace ambrel {

/// What one reading of an application's windows comes to.
struct WindowCensus {
    std::ptrdiff_t count = 0;       ///< windows in the sense of the last-window rule
    std::ptrdiff_t openDialogs = 0; ///< dialogs on the desktop, whatever workspace they are on

    bool operator==(const WindowCensus&) const = default;
};

/// Every minimised window counts, and every standard one that is on the desktop. One that may be another process's
/// counts off the desktop too, as nothing tells what its going means.
[[nodiscard]] WindowCensus takeCensus(const std::vector<ApplicationWindow>& windows);

} // namespace ambrel
