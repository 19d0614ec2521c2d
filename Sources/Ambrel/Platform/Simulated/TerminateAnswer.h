#pragma once

#include "Core/Clock.h"

#include <variant>

namespace ambrel::simulated {

/// Closes its windows and ends, `delay` after the request.
struct Quits {
    Seconds delay{0};
};
/// Closes its windows and works on without any, from the request until its end.
struct Lingers {
    Seconds span{10};
};
/// Takes the request and carries on.
struct Refuses {};
/// Asks its user first, in a dialog that stays open until someone answers it.
struct ShowsSaveDialog {};
/// Hangs from the request on; only force ends it.
struct Freezes {};
/// The request itself can't be made.
struct CannotBeAsked {};

/// How an application answers a request to quit.
using TerminateAnswer = std::variant<Quits, Lingers, Refuses, ShowsSaveDialog, Freezes, CannotBeAsked>;

} // namespace ambrel::simulated
