#pragma once

#include <optional>
#include <string>
#include <vector>

#include <unistd.h>

namespace ambrel::sample {

/// What the program was told on its command line: how its windows introduce themselves, and commands to begin with.
struct Options {
    std::string instance = "ambrel-sample";
    std::string className = "Ambrel-sample";
    std::string pid = std::to_string(getpid()); ///< `_NET_WM_PID`
    std::string machine;
    bool timestamps = false; ///< each line begins with CLOCK_MONOTONIC in seconds
    std::vector<std::string> commands;
};

/// Absent if the line makes no sense.
[[nodiscard]] std::optional<Options> parseOptions(const std::vector<std::string>& arguments);

} // namespace ambrel::sample
