#include "Contract/Linux/LinuxWindowManager.h"

#include "Contract/Linux/BecomeProgram.h"

#include <csignal>
#include <cstdlib>
#include <string>
#include <string_view>

#include <unistd.h>

namespace ambrel {

namespace {

std::vector<std::string> commandLine() {
    return std::getenv("AMBREL_DESKTOP_WM") == std::string_view("xfwm4")
               ? std::vector<std::string>{"xfwm4", "--compositor=off"}
               : std::vector<std::string>{"openbox", "--sm-disable"};
}

} // namespace

void LinuxWindowManager::stop() {
    if (isFirstRunning_) {
        kill(std::atoi(std::getenv("AMBREL_DESKTOP_WM_PID")), SIGKILL);
        isFirstRunning_ = false;
    }
    later_.reset();
}

void LinuxWindowManager::start() {
    if (!isFirstRunning_ && !later_) {
        later_.emplace([] { return becomeProgram(commandLine(), STDIN_FILENO, STDOUT_FILENO); });
    }
}

} // namespace ambrel
