#pragma once

#include "Core/Signal.h"

#include <functional>

namespace ambrel {

/// Presses of a mouse button anywhere on the screen, whichever program they go to. None is taken away from it.
class ClickMonitor {
public:
    virtual ~ClickMonitor() = default;

    /// Calls `onPress` with the place of each press of the primary or secondary button, in pixels of the whole screen,
    /// for as long as the subscription lives. Where the desktop tells nothing of clicks it is never called.
    [[nodiscard]] virtual Subscription watch(std::function<void(double x, double y)> onPress) = 0;
};

} // namespace ambrel
