#pragma once

#include "Core/Logger.h"

#include <mutex>
#include <string>
#include <vector>

namespace ambrel {

/// The log of one test. Every error and fault line that the test didn't announce fails it, and so does an announced
/// one that never came.
class RecordingLog final : public LogSink {
public:
    struct Line {
        std::string category;
        LogLevel level;
        std::string text;
    };

    /// Installs itself as the process's sink for as long as it lives.
    RecordingLog();
    RecordingLog(const RecordingLog&) = delete;
    RecordingLog& operator=(const RecordingLog&) = delete;
    ~RecordingLog() override;

    void write(std::string_view category, LogLevel level, std::string_view message) override;
    [[nodiscard]] bool wants(LogLevel) const override { return true; }

    /// Announces error or fault lines that hold `part`, before or after they are written.
    void expectError(std::string part);

    [[nodiscard]] std::vector<Line> lines() const;
    /// The texts of one category above debug level, in order.
    [[nodiscard]] std::vector<std::string> texts(std::string_view category) const;
    /// Lines of any level that hold `part`.
    [[nodiscard]] std::size_t count(std::string_view part) const;
    [[nodiscard]] bool contains(std::string_view part) const { return count(part) > 0; }
    void clear();

    /// One sentence for each broken promise.
    [[nodiscard]] std::vector<std::string> complaints() const;

private:
    mutable std::mutex mutex_; ///< queues log from their own threads
    std::vector<Line> lines_;
    std::vector<Line> serious_; ///< survives `clear`
    std::vector<std::string> expected_;
};

} // namespace ambrel
