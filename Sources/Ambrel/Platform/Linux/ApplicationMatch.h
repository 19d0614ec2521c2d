#pragma once

#include "Platform/Linux/ApplicationIdentity.h"
#include "Platform/RunningApplication.h"

#include <string>
#include <string_view>

namespace ambrel {

class DesktopEntryIndex;

/// All that can be known of a process's application before its desktop entry; absent texts are empty.
struct ApplicationClues {
    std::string sandboxEntry; ///< the entry's id by Flatpak or Snap, which is the whole truth where there is one
    WindowIdentityFacts window;
    std::string launchedEntry; ///< the entry's id that the process was started by
    std::string scopeEntry;    ///< the entry's id by the process's own systemd scope
};

/// The id of the desktop entry that a process belongs to; absent where none of the clues names one for certain.
[[nodiscard]] std::optional<std::string> matchApplication(const DesktopEntryIndex& index,
                                                          const ApplicationClues& clues);

/// The id of the desktop entry of a Snap, from an environment. A program inherits it from a Snap that it was
/// started in, so it counts only where `executable` lies in that very Snap. Empty if there is none.
[[nodiscard]] std::string snapEntry(std::string_view environ, const std::filesystem::path& executable);

/// The id of the desktop entry that an environment names as the one that the process `pid` itself was started by.
/// Empty if there is none.
[[nodiscard]] std::string launchedEntry(std::string_view environ, ProcessId pid);

} // namespace ambrel
