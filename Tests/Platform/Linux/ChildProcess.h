#pragma once

#include <csignal>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include <sys/types.h>

namespace ambrel {

/// A process of the test's own, killed and collected at the end.
class ChildProcess {
public:
    using Environment = std::map<std::string, std::string>;

    /// Runs a program with these variables alone; its standard output is read line by line.
    explicit ChildProcess(std::vector<std::string> command, const Environment& environment = {});
    /// Runs `work` in a fork; it must keep to what is safe after one.
    explicit ChildProcess(const std::function<void()>& work);
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;
    ~ChildProcess();

    [[nodiscard]] pid_t pid() const { return pid_; }
    void signal(int number) const { kill(pid_, number); }
    /// The next line; absent at the end of the output, or after ten seconds.
    [[nodiscard]] std::optional<std::string> readLine();
    /// Waits for the end and leaves a zombie.
    void awaitEnd() const;
    /// Waits until it is stopped.
    void awaitStop() const;
    /// Collects the process; answers the signal that ended it, 0 for none.
    int collect();

private:
    pid_t pid_ = -1;
    int output_ = -1;
    std::string pending_;
};

} // namespace ambrel
