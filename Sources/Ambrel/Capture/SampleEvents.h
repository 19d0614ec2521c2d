#pragma once

#include "Engine/QuitEvent.h"

#include <vector>

namespace ambrel {

/// A morning's decisions up to `now`, newest first: one of each kind that the history tells apart.
[[nodiscard]] std::vector<QuitEvent> sampleEvents(Date now);

} // namespace ambrel
