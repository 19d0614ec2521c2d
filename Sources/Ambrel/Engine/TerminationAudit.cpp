#include "Engine/TerminationAudit.h"

#include "Core/Clock.h"
#include "Core/FileDescriptor.h"
#include "Core/Files.h"
#include "Core/Utf8.h"
#include "Engine/IsoDate.h"
#include "Platform/AppClock.h"
#include "Platform/Bundle.h"
#include "Platform/Environment.h"
#include "Platform/FileLocations.h"
#include "Platform/Platform.h"
#include "Platform/Workspace.h"

#include <fmt/format.h>

#include <fcntl.h>
#include <sys/stat.h>

namespace ambrel {

namespace {

FileDescriptor openForAppending(const std::filesystem::path& file) {
    // Never truncates, and never waits for the other end of a pipe.
    return FileDescriptor(
        ::open(file.c_str(), O_WRONLY | O_APPEND | O_CREAT | O_NONBLOCK | O_CLOEXEC, S_IRUSR | S_IWUSR));
}

/// One call, so that lines of two running copies don't mix. Answers how many bytes went out.
ssize_t append(const std::filesystem::path& file, const std::string& line) {
    const auto log = openForAppending(file);
    struct stat status {};
    // A pipe whose reader goes away would end this process.
    if (!log.valid() || ::fstat(log.number(), &status) != 0 || !S_ISREG(status.st_mode)) {
        return -1;
    }
    return ::write(log.number(), line.data(), line.size());
}

} // namespace

TerminationAudit& TerminationAudit::shared() {
    static TerminationAudit audit(Platform::shared(), AppClock::shared());
    return audit;
}

TerminationAudit::TerminationAudit(Platform& platform, const Clock& clock)
    : clock_(clock),
      instanceTag_(fmt::format("by_ambrel_pid={}\tby_ambrel_path={}", platform.workspace().currentProcessIdentifier(),
                               platform.bundle().bundleURL().string())),
      customFile_(platform.environment().value("AMBREL_TERMLOG").value_or("")),
      fileURL_(!customFile_.empty() ? customFile_ : platform.fileLocations().logs() / "Ambrel" / "terminations.log") {}

void TerminationAudit::record(Path path, const RunningApplication& app, Action action, std::string_view detail) {
    const auto bundleID = app.bundleIdentifier().value_or("?");
    record(path, bundleID, app.localizedName().value_or(bundleID), app.processIdentifier(), action, detail);
}

void TerminationAudit::record(Path path, std::string_view bundleID, std::string_view name, ProcessId pid, Action action,
                              std::string_view detail) {
    auto line = fmt::format("{}\t{}\t{}\t{}\t{}\tpid={}\t{}{}{}\n", formatIsoDate(clock_.now()), rawValue(path),
                            rawValue(action), bundleID, name, pid, detail, detail.empty() ? "" : "\t", instanceTag_);
    // One name that isn't UTF-8 would make the whole tail of the log unreadable.
    queue_.async([this, line = replacingInvalidUtf8(line)] { write(line); });
}

/// A failure is ignored: the log never gets in the way. A line that was cut short doesn't swallow the next one.
void TerminationAudit::write(const std::string& line) {
    const std::string text = lineIsBroken_ ? "\n" + line : line;
    const auto written = append(fileURL(), text);
    if (written > 0) {
        lineIsBroken_ = static_cast<std::size_t>(written) < text.size();
    }
}

const std::filesystem::path& TerminationAudit::fileURL() {
    std::call_once(madeDefaultFile_, [this] {
        if (customFile_.empty()) {
            static_cast<void>(createFolder(fileURL_.parent_path()));
            static_cast<void>(openForAppending(fileURL_));
        }
    });
    return fileURL_;
}

void TerminationAudit::drain() {
    queue_.drain();
}

std::string_view rawValue(TerminationAudit::Path path) {
    switch (path) {
    case TerminationAudit::Path::lastWindow:
        return "last-window";
    case TerminationAudit::Path::hidden:
        return "hidden";
    case TerminationAudit::Path::idle:
        return "idle";
    case TerminationAudit::Path::quitAll:
        return "quit-all";
    case TerminationAudit::Path::manual:
        return "manual";
    }
    return {};
}

std::string_view rawValue(TerminationAudit::Action action) {
    switch (action) {
    case TerminationAudit::Action::terminated:
        return "terminated";
    case TerminationAudit::Action::forceTerminated:
        return "force-terminated";
    case TerminationAudit::Action::hidden:
        return "hidden";
    case TerminationAudit::Action::skippedDevMode:
        return "skipped(dev-mode)";
    case TerminationAudit::Action::skippedShadowMode:
        return "skipped(shadow-mode)";
    case TerminationAudit::Action::skippedScreenLocked:
        return "skipped(screen-locked)";
    case TerminationAudit::Action::skippedSessionInactive:
        return "skipped(session-inactive)";
    case TerminationAudit::Action::skippedSessionEnding:
        return "skipped(session-ending)";
    case TerminationAudit::Action::skippedCGWindowsExist:
        return "skipped(cg-windows-exist)";
    case TerminationAudit::Action::skippedPlaying:
        return "skipped(playing)";
    case TerminationAudit::Action::skippedInhibiting:
        return "skipped(inhibiting)";
    case TerminationAudit::Action::skippedNoAnswer:
        return "skipped(no-answer)";
    case TerminationAudit::Action::skippedWorking:
        return "skipped(working)";
    }
    return {};
}

} // namespace ambrel
