#pragma once

#include "Platform/RunningApplication.h"

#include <cstdint>
#include <functional>
#include <optional>

namespace ambrel {

/// What a process and its descendants have done so far.
struct ProcessWork {
    Seconds processorTime{0};                       ///< user and system, of all threads, collected children included
    std::optional<std::uint64_t> charactersWritten; ///< by write calls, to whatever; absent where it can't be read
    std::optional<std::uint64_t> bytesWritten;      ///< that reach a disk
    bool waitsForDisk = false;                      ///< a thread is in uninterruptible sleep at this moment
};

/// The work of processes. Main thread only.
class ProcessActivity {
public:
    virtual ~ProcessActivity() = default;

    /// Absent when the process is gone. Descendants for which `isAnother` answers true are applications of their own,
    /// and left out with all of theirs.
    [[nodiscard]] virtual std::optional<ProcessWork> work(ProcessId pid,
                                                          const std::function<bool(ProcessId)>& isAnother) const = 0;
};

} // namespace ambrel
