#pragma once

#include "Platform/RunningApplication.h"

#include <functional>
#include <vector>

namespace ambrel {

/// The threads of a process; empty once it is gone.
[[nodiscard]] std::vector<ProcessId> threadsOf(ProcessId pid);

/// The process and its descendants, the process first; each once, and some hundreds at most. Those for which
/// `isAnother` answers true are left out with all of theirs.
[[nodiscard]] std::vector<ProcessId> processTree(ProcessId root, const std::function<bool(ProcessId)>& isAnother);

} // namespace ambrel
