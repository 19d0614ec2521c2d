#include "Contract/Linux/BecomeProgram.h"

#include <csignal>

#include <sys/prctl.h>
#include <unistd.h>

namespace ambrel {

int becomeProgram(const std::vector<std::string>& commandLine, int input, int output) {
    constexpr int notFound = 127;
    std::vector<char*> arguments;
    arguments.reserve(commandLine.size() + 1);
    for (const auto& argument : commandLine) {
        arguments.push_back(const_cast<char*>(argument.c_str()));
    }
    arguments.push_back(nullptr);
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    dup2(input, STDIN_FILENO);
    dup2(output, STDOUT_FILENO);
    execvp(arguments[0], arguments.data());
    return notFound;
}

} // namespace ambrel
