#pragma once

#include "Platform/RunningApplication.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace ambrel {

/// What is said about whose a window is.
struct OwnershipClaims {
    std::optional<ProcessId> serverPid;  ///< the display server's own answer
    std::optional<ProcessId> claimedPid; ///< the window's
    std::string clientMachine;           ///< the window's; empty if it says nothing
};

struct WindowOwnership {
    /// Absent where the claims disagree: nothing may then be done to any process for this window's sake.
    std::optional<ProcessId> process;
    /// Processes that the window may belong to all the same; it speaks for their staying open.
    std::vector<ProcessId> suspects;

    bool operator==(const WindowOwnership&) const = default;
};

/// A process's id in the innermost process namespace that it is in.
using InnermostPid = std::function<std::optional<ProcessId>(ProcessId)>;

[[nodiscard]] WindowOwnership judgeOwnership(const OwnershipClaims& claims, std::string_view hostName,
                                             const InnermostPid& innermostPid);

/// Reads the id from the text of a `/proc/PID/status`.
[[nodiscard]] std::optional<ProcessId> parseInnermostPid(std::string_view status);
/// Asks the kernel; absent when the process is gone.
[[nodiscard]] std::optional<ProcessId> readInnermostPid(ProcessId pid);

} // namespace ambrel
