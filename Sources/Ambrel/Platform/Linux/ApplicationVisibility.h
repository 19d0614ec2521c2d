#pragma once

#include "Platform/Linux/WindowSource.h"

#include <span>

namespace ambrel {

/// Whether an application is hidden, judged from its windows: all of them iconified at our own request, or all
/// of them off the desktop and alive.
class ApplicationVisibility {
public:
    enum class Transition { none, hidden, shown };
    using Windows = std::span<const DesktopWindow>;

    [[nodiscard]] bool isHidden() const { return state_ == State::requested || state_ == State::withdrawn; }

    /// Its windows are being iconified at our request.
    void beginHiding();
    /// The window manager has had its time to do so.
    void endHiding();

    /// To be called after each change.
    [[nodiscard]] Transition windowsChanged(Windows windows);
    /// To be called when the windows have been as they are for a while: a window that is on its way to being
    /// closed is withdrawn, too, but not for long.
    [[nodiscard]] Transition windowsSettled(Windows windows);

private:
    enum class State {
        shown,
        hiding,    ///< iconifying at our request
        requested, ///< hidden at our request
        withdrawn, ///< hidden by itself
    };
    State state_ = State::shown;
};

/// No window is on the desktop, and at least one is alive.
[[nodiscard]] bool areAllWithdrawn(ApplicationVisibility::Windows windows);

} // namespace ambrel
