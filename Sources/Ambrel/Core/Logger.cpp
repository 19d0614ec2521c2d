#include "Core/Logger.h"

#include <atomic>

namespace ambrel {

namespace {
std::atomic<LogSink*> theSink = nullptr;
}

void LogSink::install(LogSink* sink) {
    theSink = sink;
}

LogSink* LogSink::installed() {
    return theSink;
}

void Logger::write(LogLevel level, fmt::string_view format, fmt::format_args arguments) const {
    LogSink* const sink = LogSink::installed();
    if (sink != nullptr && sink->wants(level)) {
        sink->write(category_, level, fmt::vformat(format, arguments));
    }
}

} // namespace ambrel
