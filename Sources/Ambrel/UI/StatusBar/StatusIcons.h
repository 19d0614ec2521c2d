#pragma once

#include "Platform/StatusBar.h"

namespace ambrel {

/// The pictures of the status item.
struct StatusIcons {
    IconPicture active;
    IconPicture paused;

    /// The ones that were drawn when the program was built.
    [[nodiscard]] static StatusIcons built();
};

/// The picture on the way from one to the other, with `share` from 0 to 1 of the second. Sizes that only the second
/// has appear as they are.
[[nodiscard]] IconPicture blend(const IconPicture& from, const IconPicture& to, double share);

} // namespace ambrel
