#pragma once

#include "Core/FileDescriptor.h"

#include <csignal>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include <sys/types.h>

namespace ambrel {

/// A process of the test's own, which ends with it: killed and collected with this object at the latest.
class ChildProcess {
public:
    /// Runs a program; its standard input and output are this object's.
    explicit ChildProcess(std::vector<std::string> command);
    /// Runs `work` in a fork, which ends with what it returns; it must keep to what is safe after one.
    explicit ChildProcess(const std::function<int()>& work);
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;
    ~ChildProcess();

    [[nodiscard]] pid_t pid() const { return pid_; }
    void signal(int number) const { ::kill(pid_, number); }
    void writeLine(const std::string& line);
    /// The next line; absent at the end of the output, or after ten seconds.
    [[nodiscard]] std::optional<std::string> readLine();
    /// Waits for the end and leaves a zombie.
    void awaitEnd() const;
    /// Waits until it is stopped.
    void awaitStop() const;
    /// Waits for the end and collects the process: its exit code, or -N if signal N ended it.
    int collect();
    /// As by the system: no handler runs, nothing is flushed. Returns what `collect` does.
    int kill();

private:
    pid_t pid_ = -1;
    FileDescriptor input_{-1};
    FileDescriptor output_{-1};
    std::string pending_;
};

} // namespace ambrel
