#pragma once

#include "Platform/RunningApplication.h"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace ambrel {

/// The first 64 KiB of a regular file `name` in the folder of a process below /proc; absent if it can't be read.
[[nodiscard]] std::optional<std::string> readProcFile(ProcessId pid, std::string_view name);

/// The program file that a process runs; absent if it can't be read.
[[nodiscard]] std::optional<std::filesystem::path> executableOf(ProcessId pid);

/// When a process started, in clock ticks since the machine did, from its "stat".
[[nodiscard]] std::optional<std::uint64_t> parseStartTicks(std::string_view stat);

/// What a "stat" says of the work of a process or thread.
struct StatFacts {
    char state = '?';                 ///< 'D' is uninterruptible sleep
    std::uint64_t processorTicks = 0; ///< user and system, its collected children included
};
[[nodiscard]] std::optional<StatFacts> parseStat(std::string_view stat);

/// The number on the line "label: number", as in an "io".
[[nodiscard]] std::optional<std::uint64_t> labelledNumber(std::string_view text, std::string_view label);

/// Process ids with blanks between them, as in a "children".
[[nodiscard]] std::vector<ProcessId> parseNumbers(std::string_view text);

/// The id of a process in its own process id namespace, from its "status".
[[nodiscard]] std::optional<ProcessId> parseInnermostId(std::string_view status);

/// True if real and effective user of a "status" are both `user`.
[[nodiscard]] bool statusBelongsTo(std::string_view status, std::uint32_t user);

/// The value of one variable in an "environ"; absent when not set, or cut short by the limit of reading.
[[nodiscard]] std::optional<std::string> environmentValue(std::string_view environ, std::string_view name);

/// The application's id in a ".flatpak-info".
[[nodiscard]] std::optional<std::string> parseFlatpakApplication(std::string_view info);

/// The application's id in a "cgroup", if its scope was made for the process `pid` itself and not for one of
/// its forebears: app-ID-PID.scope or app-LAUNCHER-ID-PID.scope.
[[nodiscard]] std::optional<std::string> parseScopeApplication(std::string_view cgroup, ProcessId pid);

} // namespace ambrel
