#pragma once

#include "Platform/StatusBar.h"

namespace ambrel {

/// Where a panel of this size goes: centred under the button with a gap, or over it where the button is at the bottom
/// of the screen, and inside the visible frame from left to right. Whole pixels; all of one scale.
[[nodiscard]] Rect panelPlace(double width, double height, const StatusItemPlace& place, double scale);

} // namespace ambrel
