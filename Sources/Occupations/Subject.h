#pragma once

#include "Platform/RunningApplication.h"

#include <string>
#include <string_view>
#include <vector>

namespace ambrel {

/// The application that is asked about.
class Subject {
public:
    /// `entry`: its desktop entry's id, `sandbox`: its Flatpak id, both may be empty; `processes`: its own and their
    /// descendants.
    Subject(std::string entry, std::string sandbox, std::vector<ProcessId> processes);

    [[nodiscard]] bool has(ProcessId pid) const;
    /// As has(), also for ids that a process in a sandbox tells of itself. These are small numbers that another
    /// application's process may have too; doubt keeps an application.
    [[nodiscard]] bool mayHave(ProcessId toldPid) const;
    /// True if the name is the entry's id or the sandbox's, in any case, with or without ".desktop".
    [[nodiscard]] bool isNamed(std::string_view name) const;
    /// True if the process belongs to the application, or runs in its sandbox.
    [[nodiscard]] bool contains(ProcessId pid) const;

private:
    std::string entry_;
    std::string sandbox_;
    std::vector<ProcessId> processes_;
    std::vector<ProcessId> inner_; ///< the same in their own process id namespaces
};

} // namespace ambrel
