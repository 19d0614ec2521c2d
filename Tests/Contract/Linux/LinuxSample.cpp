#include "Contract/Linux/LinuxSample.h"

#include "Contract/Linux/BecomeProgram.h"

#include <array>
#include <csignal>

#include <gtest/gtest.h>

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

namespace ambrel {

namespace {

constexpr int answerMilliseconds = 5000;

} // namespace

std::vector<std::string> LinuxSample::commandLine(const std::string& windowClass) {
    return {AMBREL_SAMPLE, "--class", windowClass, windowClass, "open"};
}

LinuxSample::LinuxSample(const std::string& windowClass) : windows_(1) {
    std::array<int, 2> toChild{};
    std::array<int, 2> fromChild{};
    if (pipe2(toChild.data(), O_CLOEXEC) != 0 || pipe2(fromChild.data(), O_CLOEXEC) != 0) {
        std::abort();
    }
    process_.emplace([&] { return becomeProgram(commandLine(windowClass), toChild[0], fromChild[1]); });
    ::close(toChild[0]);
    ::close(fromChild[1]);
    input_ = toChild[1];
    output_ = fromChild[0];
}

LinuxSample::~LinuxSample() {
    ::close(input_);
    ::close(output_);
}

int LinuxSample::open(const std::string& verb) {
    command(verb);
    return ++windows_;
}

void LinuxSample::show() {
    for (int window = 1; window <= windows_; ++window) {
        map(window);
    }
}

void LinuxSample::refuseToQuit() {
    command("ignore-term");
    command("ignore-delete");
}

void LinuxSample::crash() {
    // Not waited for yet: until the end of this object nobody else gets its process id.
    kill(process_->pid(), SIGKILL);
}

void LinuxSample::command(const std::string& line) {
    const std::string text = line + "\nroundtrip\n";
    EXPECT_EQ(write(input_, text.data(), text.size()), static_cast<ssize_t>(text.size())) << line;
    awaitOutput("answered\n");
}

void LinuxSample::awaitOutput(const std::string& text) {
    std::string seen;
    while (!seen.ends_with(text)) {
        pollfd source{output_, POLLIN, 0};
        std::array<char, 1> next{};
        if (poll(&source, 1, answerMilliseconds) != 1 || read(output_, next.data(), 1) != 1) {
            ADD_FAILURE() << "the sample did not answer: " << seen;
            return;
        }
        seen += next[0];
    }
}

} // namespace ambrel
