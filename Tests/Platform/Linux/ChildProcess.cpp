#include "Platform/Linux/ChildProcess.h"

#include <utility>

#include <fcntl.h>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace ambrel {

namespace {

std::vector<char*> pointers(std::vector<std::string>& texts) {
    std::vector<char*> result;
    for (auto& text : texts) {
        result.push_back(text.data());
    }
    result.push_back(nullptr);
    return result;
}

std::vector<std::string> assignments(const ChildProcess::Environment& environment) {
    std::vector<std::string> result;
    for (const auto& [name, value] : environment) {
        result.push_back(name + "=" + value);
    }
    return result;
}

} // namespace

ChildProcess::ChildProcess(std::vector<std::string> command, const Environment& environment) {
    auto variables = assignments(environment);
    const auto arguments = pointers(command);
    const auto values = pointers(variables);
    int ends[2];
    [[maybe_unused]] const int made = pipe2(ends, O_CLOEXEC);
    pid_ = fork();
    if (pid_ == 0) {
        prctl(PR_SET_PDEATHSIG, SIGKILL);
        dup2(ends[1], STDOUT_FILENO);
        execvpe(arguments[0], arguments.data(), values.data());
        _exit(127);
    }
    close(ends[1]);
    output_ = ends[0];
}

ChildProcess::ChildProcess(const std::function<void()>& work) : pid_(fork()) {
    if (pid_ == 0) {
        prctl(PR_SET_PDEATHSIG, SIGKILL);
        work();
        _exit(0);
    }
}

ChildProcess::~ChildProcess() {
    if (pid_ > 0) {
        signal(SIGKILL);
        collect();
    }
    if (output_ >= 0) {
        close(output_);
    }
}

std::optional<std::string> ChildProcess::readLine() {
    constexpr int patienceMilliseconds = 10'000;
    for (auto end = pending_.find('\n');; end = pending_.find('\n')) {
        if (end != std::string::npos) {
            auto line = pending_.substr(0, end);
            pending_.erase(0, end + 1);
            return line;
        }
        pollfd request{output_, POLLIN, 0};
        char buffer[512];
        const auto length = poll(&request, 1, patienceMilliseconds) > 0 ? read(output_, buffer, sizeof buffer) : 0;
        if (length <= 0) {
            return std::nullopt;
        }
        pending_.append(buffer, static_cast<std::size_t>(length));
    }
}

void ChildProcess::awaitEnd() const {
    siginfo_t facts{};
    waitid(P_PID, static_cast<id_t>(pid_), &facts, WEXITED | WNOWAIT);
}

void ChildProcess::awaitStop() const {
    waitpid(pid_, nullptr, WUNTRACED);
}

int ChildProcess::collect() {
    int status = 0;
    waitpid(std::exchange(pid_, -1), &status, 0);
    return WIFSIGNALED(status) ? WTERMSIG(status) : 0;
}

} // namespace ambrel
