#pragma once

#include "Capture/Picture.h"

#include <vector>

namespace ambrel {

class Fixtures;

/// Every view that `Capture` draws, and what it shows. `fixtures` must outlive the views.
[[nodiscard]] std::vector<Picture> registry(Fixtures& fixtures);

/// Those of `Snapshots`.
[[nodiscard]] std::vector<Picture> shots(Fixtures& fixtures);

} // namespace ambrel
