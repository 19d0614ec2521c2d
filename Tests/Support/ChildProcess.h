#pragma once

#include <csignal>

#include <sys/wait.h>
#include <unistd.h>

namespace ambrel {

/// Runs one function in a forked copy of the test, which ends with it. Killed at the latest with this object.
class ChildProcess {
public:
    template <typename Work> explicit ChildProcess(Work work) : pid_(::fork()) {
        if (pid_ == 0) {
            ::_exit(work());
        }
    }
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;
    ~ChildProcess() { kill(); }

    [[nodiscard]] pid_t pid() const { return pid_; }

    /// As by the system: no handler runs, nothing is flushed. Returns what `wait` does.
    int kill() {
        if (pid_ <= 0) {
            return -1;
        }
        ::kill(pid_, SIGKILL);
        return wait();
    }

    /// The exit code; -1 where a signal ended it.
    int wait() {
        int status = 0;
        ::waitpid(pid_, &status, 0);
        pid_ = -1;
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }

private:
    pid_t pid_;
};

} // namespace ambrel
