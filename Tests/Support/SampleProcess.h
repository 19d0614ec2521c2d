#pragma once

#include "Support/ChildProcess.h"

#include <cstdint>

namespace ambrel {

/// The sample program as a child process, driven by its commands.
class SampleProcess : public ChildProcess {
public:
    explicit SampleProcess(const std::vector<std::string>& arguments = {}) : ChildProcess(commandLine(arguments)) {}

    [[nodiscard]] static std::vector<std::string> commandLine(const std::vector<std::string>& arguments);

    /// Returns when the program has done its part and the X server has taken it.
    void command(const std::string& line);
    /// Opens a window by one of the program's verbs; answers its id when it is on the screen.
    std::uint32_t open(const std::string& verb = "open");
};

} // namespace ambrel
