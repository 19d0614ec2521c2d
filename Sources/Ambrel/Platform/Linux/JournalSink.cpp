#include "Platform/Linux/JournalSink.h"

#include <array>
#include <chrono>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <string>

#include <fmt/format.h>
#include <systemd/sd-journal.h>

#include <sys/stat.h>
#include <sys/uio.h>
#include <syslog.h>
#include <unistd.h>

namespace ambrel {

namespace {

bool journalListens() {
    std::error_code error;
    return std::filesystem::is_socket("/run/systemd/journal/socket", error);
}

bool standardErrorIsJournal() {
    const char* const stream = std::getenv("JOURNAL_STREAM");
    struct stat facts {};
    return stream != nullptr && fstat(STDERR_FILENO, &facts) == 0 &&
           stream == fmt::format("{}:{}", facts.st_dev, facts.st_ino);
}

int priority(LogLevel level) {
    switch (level) {
    case LogLevel::debug:
        return LOG_DEBUG;
    case LogLevel::standard:
        return LOG_NOTICE;
    case LogLevel::error:
        return LOG_ERR;
    case LogLevel::fault:
        return LOG_CRIT;
    }
    return LOG_NOTICE;
}

std::string_view prefix(LogLevel level) {
    return level == LogLevel::error ? "error " : level == LogLevel::fault ? "fault " : "";
}

std::string timeOfDay() {
    const auto now = std::chrono::system_clock::now();
    const auto seconds = std::chrono::system_clock::to_time_t(now);
    const auto milliseconds =
        std::chrono::duration_cast<std::chrono::milliseconds>(now.time_since_epoch()).count() % 1000;
    std::tm local{};
    localtime_r(&seconds, &local);
    return fmt::format("{:02}:{:02}:{:02}.{:03}", local.tm_hour, local.tm_min, local.tm_sec, milliseconds);
}

void sendToJournal(std::string_view category, LogLevel level, std::string_view message) {
    std::array fields{fmt::format("MESSAGE={}", message), fmt::format("PRIORITY={}", priority(level)),
                      std::string("SYSLOG_IDENTIFIER=ambrel"), fmt::format("AMBREL_SUBSYSTEM={}", Logger::subsystem),
                      fmt::format("AMBREL_CATEGORY={}", category)};
    std::array<iovec, fields.size()> parts{};
    for (std::size_t i = 0; i < fields.size(); ++i) {
        parts[i] = {fields[i].data(), fields[i].size()};
    }
    sd_journal_sendv(parts.data(), static_cast<int>(parts.size()));
}

void sendToStandardError(std::string_view category, LogLevel level, std::string_view message) {
    // One write, so that lines of several threads don't mix.
    const auto line = fmt::format("{} {}{}: {}\n", timeOfDay(), prefix(level), category, message);
    [[maybe_unused]] const auto written = ::write(STDERR_FILENO, line.data(), line.size());
}

} // namespace

JournalSink::JournalSink()
    : hasJournal_(journalListens()), hasStandardError_(!hasJournal_ || !standardErrorIsJournal()) {}

void JournalSink::write(std::string_view category, LogLevel level, std::string_view message) {
    if (hasJournal_) {
        sendToJournal(category, level, message);
    }
    if (hasStandardError_ && level != LogLevel::debug) {
        sendToStandardError(category, level, message);
    }
}

bool JournalSink::wants(LogLevel level) const {
    return hasJournal_ || level != LogLevel::debug;
}

} // namespace ambrel
