#pragma once

#include "Inquiry.h"
#include "Subject.h"

namespace ambrel {

/// Asks the sound server, if one runs: a stream, played or recorded and not paused,
/// of one of the application's processes occupies it.
void askSoundServer(const Subject& subject, Inquiry& inquiry);

} // namespace ambrel
