#include "Support/ChildProcess.h"

#include <cstdlib>
#include <utility>

#include <fcntl.h>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace ambrel {

namespace {

std::pair<FileDescriptor, FileDescriptor> makePipe() {
    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0) {
        std::abort();
    }
    return {FileDescriptor(ends[0]), FileDescriptor(ends[1])};
}

int become(std::vector<std::string>& command) {
    constexpr int notFound = 127;
    std::vector<char*> arguments;
    arguments.reserve(command.size() + 1);
    for (auto& text : command) {
        arguments.push_back(text.data());
    }
    arguments.push_back(nullptr);
    execvp(arguments[0], arguments.data());
    return notFound;
}

pid_t forked(const std::function<int()>& work) {
    const pid_t pid = fork();
    if (pid == 0) {
        prctl(PR_SET_PDEATHSIG, SIGKILL);
        _exit(work());
    }
    return pid;
}

} // namespace

ChildProcess::ChildProcess(std::vector<std::string> command) {
    auto [itsInput, input] = makePipe();
    auto [output, itsOutput] = makePipe();
    pid_ = forked([&, in = itsInput.number(), out = itsOutput.number()] {
        dup2(in, STDIN_FILENO);
        dup2(out, STDOUT_FILENO);
        return become(command);
    });
    input_ = std::move(input);
    output_ = std::move(output);
}

ChildProcess::ChildProcess(const std::function<int()>& work) : pid_(forked(work)) {}

ChildProcess::~ChildProcess() {
    kill();
}

void ChildProcess::writeLine(const std::string& line) {
    const auto text = line + "\n";
    [[maybe_unused]] const auto written = write(input_.number(), text.data(), text.size());
}

std::optional<std::string> ChildProcess::readLine() {
    constexpr int patienceMilliseconds = 10'000;
    for (auto end = pending_.find('\n');; end = pending_.find('\n')) {
        if (end != std::string::npos) {
            auto line = pending_.substr(0, end);
            pending_.erase(0, end + 1);
            return line;
        }
        pollfd request{output_.number(), POLLIN, 0};
        char buffer[512];
        const auto length = poll(&request, 1, patienceMilliseconds) > 0 ? read(request.fd, buffer, sizeof buffer) : 0;
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
    return WIFSIGNALED(status) ? -WTERMSIG(status) : WEXITSTATUS(status);
}

int ChildProcess::kill() {
    if (pid_ <= 0) {
        return 0;
    }
    signal(SIGKILL);
    return collect();
}

} // namespace ambrel
