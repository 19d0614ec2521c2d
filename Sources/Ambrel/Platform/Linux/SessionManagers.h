#pragma once

#include "Core/Signal.h"
#include "Platform/Linux/BusService.h"

namespace ambrel {

/// The session managers of the session bus that tell of the session's end: GNOME's, whose words others use too, and
/// Xfce's.
class SessionManagers {
public:
    /// `sessionBus` must outlive this object.
    explicit SessionManagers(AsyncBus& sessionBus);
    SessionManagers(const SessionManagers&) = delete;
    SessionManagers& operator=(const SessionManagers&) = delete;

    Signal<bool> ending; ///< heard, whether it is new or not; false: it was called off

private:
    BusService gnome_;
    BusService xfce_;
};

} // namespace ambrel
