#pragma once

#include "Core/Logger.h"

namespace ambrel {

/// Writes log lines to the journal where there is one, and to standard error unless that leads there as well.
/// Debug lines go to the journal only. Any thread.
class JournalSink final : public LogSink {
public:
    JournalSink();

    void write(std::string_view category, LogLevel level, std::string_view message) override;
    [[nodiscard]] bool wants(LogLevel level) const override;

private:
    bool hasJournal_;
    bool hasStandardError_;
};

} // namespace ambrel
