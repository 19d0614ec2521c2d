#pragma once

#include "Bus.h"
#include "Subject.h"

namespace ambrel {

/// Asks logind: a lock in mode "block" of one of the application's processes occupies it.
void askLoginInhibitors(const Bus& system, const Subject& subject, Inquiry& inquiry);

/// Asks the session manager: an inhibitor under the application's id occupies it.
void askSessionInhibitors(const Bus& session, const Subject& subject, Inquiry& inquiry);

} // namespace ambrel
