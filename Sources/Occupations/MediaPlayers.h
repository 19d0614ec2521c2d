#pragma once

#include "Bus.h"
#include "Subject.h"

namespace ambrel {

/// Asks the media players of the session bus: one that plays, and is the application, occupies it.
void askMediaPlayers(const Bus& session, const Subject& subject, Inquiry& inquiry);

} // namespace ambrel
