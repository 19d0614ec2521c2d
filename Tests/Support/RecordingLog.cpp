#include "Support/RecordingLog.h"

#include <algorithm>

namespace ambrel {

namespace {

bool holds(const RecordingLog::Line& line, std::string_view part) {
    return line.text.find(part) != std::string::npos;
}

} // namespace

RecordingLog::RecordingLog() {
    LogSink::install(this);
}

RecordingLog::~RecordingLog() {
    LogSink::install(nullptr);
}

void RecordingLog::write(std::string_view category, LogLevel level, std::string_view message) {
    const std::lock_guard lock(mutex_);
    lines_.push_back({std::string(category), level, std::string(message)});
    if (level >= LogLevel::error) {
        serious_.push_back(lines_.back());
    }
}

void RecordingLog::expectError(std::string part) {
    const std::lock_guard lock(mutex_);
    expected_.push_back(std::move(part));
}

std::vector<RecordingLog::Line> RecordingLog::lines() const {
    const std::lock_guard lock(mutex_);
    return lines_;
}

std::vector<std::string> RecordingLog::texts(std::string_view category) const {
    std::vector<std::string> texts;
    for (const auto& line : lines()) {
        if (line.category == category && line.level != LogLevel::debug) {
            texts.push_back(line.text);
        }
    }
    return texts;
}

std::size_t RecordingLog::count(std::string_view part) const {
    const auto all = lines();
    return static_cast<std::size_t>(
        std::count_if(all.begin(), all.end(), [part](const Line& line) { return holds(line, part); }));
}

void RecordingLog::clear() {
    const std::lock_guard lock(mutex_);
    lines_.clear();
}

std::vector<std::string> RecordingLog::complaints() const {
    const std::lock_guard lock(mutex_);
    std::vector<std::string> complaints;
    for (const auto& line : serious_) {
        if (std::none_of(expected_.begin(), expected_.end(), [&](const auto& part) { return holds(line, part); })) {
            complaints.push_back("unexpected line in \"" + line.category + "\": " + line.text);
        }
    }
    for (const auto& part : expected_) {
        if (std::none_of(serious_.begin(), serious_.end(), [&](const auto& line) { return holds(line, part); })) {
            complaints.push_back("no error line said: " + part);
        }
    }
    return complaints;
}

} // namespace ambrel
