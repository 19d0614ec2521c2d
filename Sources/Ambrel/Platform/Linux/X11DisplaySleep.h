#pragma once

#include "Core/Signal.h"
#include "Platform/Linux/X11Connection.h"

#include <optional>

#include <xcb/dpms.h>
#include <xcb/screensaver.h>

namespace ambrel {

/// Whether the displays are dark: blanked by the X server's own screen saver, or saving power. The server tells of the
/// first by events. The power level it tells only when asked, so it is asked when something else happens: a change of
/// level blanks or unblanks the screen as well, in all but a few odd cases, which `mayHaveMissedAChange` knows.
class X11DisplaySleep {
public:
    /// `connection` must outlive this object.
    explicit X11DisplaySleep(X11Connection& connection);

    /// Asks for the present state and for its changes.
    void start();
    /// False on a server that tells nothing of its displays.
    [[nodiscard]] bool isWatched() const { return hasSaver_ || hasPowerLevel_; }
    [[nodiscard]] bool isAsleep() const { return isBlanked_ || isSavingPower_; }

    Signal<> didChange;

private:
    void handle(const xcb_generic_event_t& event);
    [[nodiscard]] bool mayHaveMissedAChange() const;
    void askPowerLevel();
    void takeAnswers();
    void set(bool& flag, bool value);

    X11Connection& connection_;
    bool hasSaver_;
    bool hasPowerLevel_;
    std::uint8_t notifyEvent_ = 0;
    bool isBlanked_ = false;
    bool isSavingPower_ = false;
    std::optional<unsigned> saverQuestion_; ///< the request that has not been answered yet
    std::optional<unsigned> powerQuestion_;
    Subscription events_;
    Subscription drained_;
    Subscription polled_;
};

} // namespace ambrel
