#pragma once

#include "Core/Clock.h"
#include "Platform/Linux/WindowSource.h"

#include <span>
#include <unordered_map>

namespace ambrel {

/// Whether an application is hidden: all of its windows are iconified at our own request, or none is on the desktop
/// and its user can bring it back. What counts is how the last one left: withdrawn means hidden, for as long as it is
/// alive; destroyed means closed. An icon in the tray means hidden in any case.
class ApplicationVisibility {
public:
    enum class Transition { none, hidden, shown };
    using Windows = std::span<const DesktopWindow>;

    [[nodiscard]] bool isHidden() const { return inTray_ || state_ == State::requested || state_ == State::withdrawn; }

    /// Its windows are being iconified at our request.
    void beginHiding();
    /// The window manager has had its time to do so, and may have refused.
    void endHiding();

    /// Takes in one change of one window; `now` is a time that only grows. To be called before `changed`.
    void note(WindowEvent event, const DesktopWindow& window, Seconds now);
    /// To be called after each change. One that is in the tray is hidden at once, since its windows may be closed
    /// rather than withdrawn, and nothing else would tell the two apart.
    [[nodiscard]] Transition changed(Windows windows, bool ownsTrayItem);
    /// To be called when all has been as it is for `withdrawalTime`.
    [[nodiscard]] Transition settled(Windows windows, bool ownsTrayItem);

    /// No window is on the desktop, and one could be again.
    [[nodiscard]] bool isAway(Windows windows, bool ownsTrayItem) const;

    /// A window that is being closed is often taken off the desktop first, but is not alive for long then.
    static constexpr Seconds withdrawalTime{0.25};

private:
    enum class State {
        shown,
        hiding,    ///< iconifying at our request
        requested, ///< hidden at our request
        withdrawn, ///< hidden by itself, for a while now
    };

    void forgetWithdrawnBefore(Seconds time);

    State state_ = State::shown;
    bool inTray_ = false;
    /// When each window was withdrawn that may be the one the user brings the application back by.
    std::unordered_map<WindowId, Seconds> withdrawn_;
};

} // namespace ambrel
