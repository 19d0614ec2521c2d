#pragma once

#include <string>
#include <vector>

namespace ambrel {

/// Turns a forked child into another program, with the given standard input and output. The program ends with its
/// parent at the latest. Returns only on failure, with the exit code for it.
[[nodiscard]] int becomeProgram(const std::vector<std::string>& commandLine, int input, int output);

} // namespace ambrel
