#pragma once

#include <string_view>

#include <fmt/core.h>

namespace ambrel {

enum class LogLevel { debug, standard, error, fault };

/// Where log lines go; one for the process.
class LogSink {
public:
    virtual ~LogSink() = default;
    virtual void write(std::string_view category, LogLevel level, std::string_view message) = 0;
    /// False lets a logger skip the formatting of lines that nobody would see.
    [[nodiscard]] virtual bool wants(LogLevel level) const = 0;

    /// Until a sink is installed, lines are dropped. The sink must outlive its last line; null removes it.
    static void install(LogSink* sink);
    [[nodiscard]] static LogSink* installed();
};

/// Writes lines of one category under the subsystem `app.ambrel.Ambrel`. Formats are those of fmt, independent
/// of the locale; write seconds with `{:f}`.
class Logger {
public:
    static constexpr std::string_view subsystem = "app.ambrel.Ambrel";

    /// `category` must outlive the logger: pass a literal.
    constexpr explicit Logger(std::string_view category) : category_(category) {}

    template <typename... Arguments>
    void debug(fmt::format_string<Arguments...> format, Arguments&&... arguments) const {
        write(LogLevel::debug, format, fmt::make_format_args(arguments...));
    }
    template <typename... Arguments>
    void notice(fmt::format_string<Arguments...> format, Arguments&&... arguments) const {
        write(LogLevel::standard, format, fmt::make_format_args(arguments...));
    }
    template <typename... Arguments>
    void error(fmt::format_string<Arguments...> format, Arguments&&... arguments) const {
        write(LogLevel::error, format, fmt::make_format_args(arguments...));
    }
    template <typename... Arguments>
    void fault(fmt::format_string<Arguments...> format, Arguments&&... arguments) const {
        write(LogLevel::fault, format, fmt::make_format_args(arguments...));
    }

private:
    void write(LogLevel level, fmt::string_view format, fmt::format_args arguments) const;

    std::string_view category_;
};

} // namespace ambrel
