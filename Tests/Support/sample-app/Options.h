#pragma once

#include <optional>
#include <string>
#include <vector>

#include <sys/types.h>

namespace ambrel::sample {

/// What the program was told on its command line: how its windows introduce themselves, and commands to begin with.
struct Options {
    std::string instance = "ambrel-sample";
    std::string className = "Ambrel-sample";
    std::optional<pid_t> pid; ///< `_NET_WM_PID`; absent: no such property
    std::string machine;
    bool timestamps = false; ///< each line begins with CLOCK_MONOTONIC in seconds
    std::vector<std::string> commands;
};

/// Absent if the line makes no sense.
[[nodiscard]] std::optional<Options> parseOptions(const std::vector<std::string>& arguments);

} // namespace ambrel::sample
