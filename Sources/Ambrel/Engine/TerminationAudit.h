#pragma once

#include "Core/SerialQueue.h"
#include "Platform/RunningApplication.h"

#include <filesystem>
#include <mutex>
#include <string>
#include <string_view>

namespace ambrel {

class Clock;
class Platform;

/// Writes the decisions log: one line for every decision to end an application, and for every one held back.
/// The file only grows. Lines can be recorded on any thread, and never wait for the disk.
class TerminationAudit {
public:
    /// The route by which a decision came.
    enum class Path { lastWindow, hidden, idle, quitAll, manual };
    enum class Action {
        terminated,
        forceTerminated,
        hidden,
        skippedDevMode,
        skippedShadowMode,
        skippedScreenLocked,
        skippedSessionInactive,
        skippedSessionEnding,
        skippedCGWindowsExist,
        skippedPlaying,
        skippedInhibiting,
        skippedNoAnswer,
        skippedWorking,
    };

    [[nodiscard]] static TerminationAudit& shared();

    /// `clock` dates the lines.
    TerminationAudit(Platform& platform, const Clock& clock);

    void record(Path path, const RunningApplication& app, Action action, std::string_view detail = {});
    void record(Path path, std::string_view bundleID, std::string_view name, ProcessId pid, Action action,
                std::string_view detail = {});

    /// Where the log lies. Makes the default folder and an empty file at first use.
    [[nodiscard]] const std::filesystem::path& fileURL();

    /// Returns when every line recorded so far has been handed to the system.
    void drain();

private:
    void write(const std::string& line);

    const Clock& clock_;
    std::string instanceTag_;
    std::filesystem::path customFile_; ///< empty for the default place
    std::filesystem::path fileURL_;
    std::once_flag madeDefaultFile_; ///< by the first asker, here or on the queue
    /// The last write was cut short, as on a full disk. Belongs to the queue.
    bool lineIsBroken_ = false;
    SerialQueue queue_{"app.ambrel.Ambrel.termaudit"};
};

/// The word that stands for a path or an action in the log.
[[nodiscard]] std::string_view rawValue(TerminationAudit::Path path);
[[nodiscard]] std::string_view rawValue(TerminationAudit::Action action);

} // namespace ambrel
