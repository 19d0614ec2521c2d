#pragma once

#include "Platform/ProcessActivity.h"
#include "Platform/Simulated/SimulatedWorkspace.h"

#include <algorithm>
#include <cstdint>
#include <functional>
#include <map>
#include <optional>

namespace ambrel::simulated {

/// How a process is busy; each by itself is a sign of work.
enum class Work { computes, writes, waitsForDisk };

/// Processes work as tests say, and rest otherwise.
class SimulatedProcessActivity final : public ProcessActivity {
public:
    explicit SimulatedProcessActivity(SimulatedWorkspace& workspace) : workspace_(workspace) {}

    /// The process works from now on, for `span`; whatever it did before is over.
    void work(ProcessId pid, Work kind, Seconds span) {
        auto& task = tasks_[pid];
        task = {kind, now(), now() + span, done(task)};
    }

    [[nodiscard]] bool isWorking(ProcessId pid) const {
        const auto task = tasks_.find(pid);
        return task != tasks_.end() && now() < task->second.end;
    }
    [[nodiscard]] std::optional<ProcessWork> work(ProcessId pid, const std::function<bool(ProcessId)>&) const override {
        if (!workspace_.find(pid)) {
            return std::nullopt;
        }
        const auto task = tasks_.find(pid);
        return done(task != tasks_.end() ? task->second : Task{});
    }

private:
    struct Task {
        Work kind = Work::computes;
        Seconds begin{0};
        Seconds end{0};
        ProcessWork before{.processorTime = Seconds(0), .charactersWritten = 0, .bytesWritten = 0};
    };

    [[nodiscard]] Seconds now() const { return workspace_.queue().monotonicClock().now(); }

    [[nodiscard]] ProcessWork done(const Task& task) const {
        constexpr double bytesASecond = 1e6;
        const Seconds spent = std::min(now(), task.end) - task.begin;
        auto work = task.before;
        if (task.kind == Work::computes) {
            work.processorTime += spent;
        } else if (task.kind == Work::writes) {
            *work.charactersWritten += static_cast<std::uint64_t>(spent.count() * bytesASecond);
            work.bytesWritten = work.charactersWritten;
        }
        work.waitsForDisk = task.kind == Work::waitsForDisk && now() < task.end;
        return work;
    }

    SimulatedWorkspace& workspace_;
    std::map<ProcessId, Task> tasks_;
};

} // namespace ambrel::simulated
