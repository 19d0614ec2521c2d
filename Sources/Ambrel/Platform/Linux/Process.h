#pragma once

#include "Platform/RunningApplication.h"

#include <functional>
#include <memory>

class QSocketNotifier;

namespace ambrel {

/// One process of this user, held by a file descriptor so that a reused process id can never be meant.
/// Main thread only.
class Process : public std::enable_shared_from_this<Process> {
public:
    /// Calls `onExit` once, from the event loop, after the process has ended. Null if the process is gone, or
    /// runs as another user.
    [[nodiscard]] static std::shared_ptr<Process> open(ProcessId pid, std::function<void()> onExit);
    /// False once the process has ended, also while nobody has collected it. Whoever's it is; on any thread.
    [[nodiscard]] static bool exists(ProcessId pid);
    Process(const Process&) = delete;
    Process& operator=(const Process&) = delete;
    ~Process();

    [[nodiscard]] ProcessId pid() const { return pid_; }
    /// True as soon as the process has ended, also while nobody has collected it.
    [[nodiscard]] bool hasExited() const;
    /// False if the process has ended or the signal could not be sent.
    bool signal(int number) const;
    [[nodiscard]] Date startDate() const { return startDate_; }

private:
    Process(ProcessId pid, int descriptor, Date startDate, std::function<void()> onExit);
    void exited();

    ProcessId pid_;
    int descriptor_;
    Date startDate_;
    std::function<void()> onExit_;
    QSocketNotifier* notifier_;
};

} // namespace ambrel
