#pragma once

#include "Core/Signal.h"

namespace ambrel {

class Appearance;

/// Lets the views look as the desktop wants it, now and at each change.
class AppearanceFeed {
public:
    /// `source` must outlive this object.
    explicit AppearanceFeed(Appearance& source);

private:
    Subscription changes_;
};

} // namespace ambrel
