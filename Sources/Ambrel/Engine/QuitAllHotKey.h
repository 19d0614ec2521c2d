#pragma once

#include "Platform/HotKeyCenter.h"

namespace ambrel {

/// Q with command, option and shift.
inline constexpr HotKey quitAllHotKey{12, 0xB00};

} // namespace ambrel
