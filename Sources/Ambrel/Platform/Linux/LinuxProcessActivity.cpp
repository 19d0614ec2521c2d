#include "Platform/Linux/LinuxProcessActivity.h"

#include "Platform/Linux/ProcFiles.h"
#include "Platform/Linux/ProcessTree.h"

#include <algorithm>

#include <fmt/format.h>

#include <unistd.h>

namespace ambrel {

namespace {

/// A thread of a process waits for a disk, which no signal can end.
bool waitsForDisk(ProcessId pid) {
    const auto threads = threadsOf(pid);
    return std::any_of(threads.begin(), threads.end(), [pid](ProcessId thread) {
        const auto stat = readProcFile(pid, fmt::format("task/{}/stat", thread));
        const auto facts = stat ? parseStat(*stat) : std::nullopt;
        return facts && facts->state == 'D';
    });
}

void add(std::optional<std::uint64_t>& sum, const std::optional<std::uint64_t>& more) {
    if (more) {
        sum = sum.value_or(0) + *more;
    }
}

/// False when the process is gone.
bool addProcess(ProcessWork& work, ProcessId pid) {
    const auto stat = readProcFile(pid, "stat");
    const auto facts = stat ? parseStat(*stat) : std::nullopt;
    if (!facts) {
        return false;
    }
    work.processorTime +=
        Seconds(static_cast<double>(facts->processorTicks) / static_cast<double>(sysconf(_SC_CLK_TCK)));
    if (const auto io = readProcFile(pid, "io")) {
        add(work.charactersWritten, labelledNumber(*io, "wchar"));
        add(work.bytesWritten, labelledNumber(*io, "write_bytes"));
    }
    work.waitsForDisk = work.waitsForDisk || waitsForDisk(pid);
    return true;
}

} // namespace

std::optional<ProcessWork> LinuxProcessActivity::work(ProcessId pid,
                                                      const std::function<bool(ProcessId)>& isAnother) const {
    ProcessWork work;
    if (!addProcess(work, pid)) {
        return std::nullopt;
    }
    for (const auto each : processTree(pid, isAnother)) {
        if (each != pid) {
            addProcess(work, each);
        }
    }
    return work;
}

} // namespace ambrel
