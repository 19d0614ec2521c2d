#include "Platform/Linux/ProcFiles.h"

#include <charconv>
#include <vector>

#include <fmt/format.h>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace ambrel {

namespace {

constexpr std::size_t readLimit = std::size_t{64} * 1024;

std::string readUpTo(int descriptor, std::size_t limit) {
    std::string content(limit, '\0');
    std::size_t length = 0;
    while (length < limit) {
        const auto count = ::read(descriptor, content.data() + length, limit - length);
        if (count <= 0) {
            break;
        }
        length += static_cast<std::size_t>(count);
    }
    content.resize(length);
    return content;
}

bool isRegular(int descriptor) {
    struct stat facts {};
    return fstat(descriptor, &facts) == 0 && S_ISREG(facts.st_mode);
}

std::vector<std::string_view> split(std::string_view text, char separator) {
    std::vector<std::string_view> parts;
    while (true) {
        const auto end = text.find(separator);
        parts.push_back(text.substr(0, end));
        if (end == std::string_view::npos) {
            return parts;
        }
        text.remove_prefix(end + 1);
    }
}

template <typename Number> std::optional<Number> parseWhole(std::string_view text, int base = 10) {
    Number number{};
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number, base);
    if (error != std::errc() || end != text.data() + text.size()) {
        return std::nullopt;
    }
    return number;
}

/// Undoes the escapes of a unit's name: "\x2d" is a hyphen.
std::string unescapeUnitName(std::string_view name) {
    std::string plain;
    while (!name.empty()) {
        const auto code = name.substr(0, 2) == "\\x" && name.size() >= 4
                              ? parseWhole<unsigned char>(name.substr(2, 2), 16)
                              : std::nullopt;
        plain += code ? static_cast<char>(*code) : name.front();
        name.remove_prefix(code ? 4 : 1);
    }
    return plain;
}

} // namespace

std::optional<std::string> readProcFile(ProcessId pid, std::string_view name) {
    const auto path = fmt::format("/proc/{}/{}", pid, name);
    // A file in the process's own root may be anything, also a pipe that would block.
    const int descriptor = ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY);
    if (descriptor < 0) {
        return std::nullopt;
    }
    auto content = isRegular(descriptor) ? std::optional(readUpTo(descriptor, readLimit)) : std::nullopt;
    ::close(descriptor);
    return content;
}

std::optional<std::filesystem::path> executableOf(ProcessId pid) {
    std::error_code error;
    auto path = std::filesystem::read_symlink(fmt::format("/proc/{}/exe", pid), error);
    return error ? std::nullopt : std::optional(std::move(path));
}

namespace {

/// The fields of a "stat" from the third on, the state.
std::vector<std::string_view> fieldsAfterName(std::string_view stat) {
    // The name in parentheses may hold anything, parentheses and blanks too.
    constexpr std::string_view nameEnd = ") ";
    const auto found = stat.rfind(nameEnd);
    return found != std::string_view::npos ? split(stat.substr(found + nameEnd.size()), ' ')
                                           : std::vector<std::string_view>();
}

} // namespace

std::optional<std::uint64_t> parseStartTicks(std::string_view stat) {
    constexpr std::size_t startField = 22 - 3;
    const auto fields = fieldsAfterName(stat);
    return fields.size() > startField ? parseWhole<std::uint64_t>(fields[startField]) : std::nullopt;
}

std::optional<StatFacts> parseStat(std::string_view stat) {
    constexpr std::size_t firstTimeField = 14 - 3; // user, system, and the same of collected children
    constexpr std::size_t times = 4;
    const auto fields = fieldsAfterName(stat);
    if (fields.size() < firstTimeField + times || fields.front().size() != 1) {
        return std::nullopt;
    }
    StatFacts facts{.state = fields.front().front()};
    for (std::size_t field = firstTimeField; field < firstTimeField + times; ++field) {
        facts.processorTicks += parseWhole<std::uint64_t>(fields[field]).value_or(0);
    }
    return facts;
}

std::optional<std::uint64_t> labelledNumber(std::string_view text, std::string_view label) {
    for (const auto line : split(text, '\n')) {
        if (line.starts_with(label) && line.substr(label.size()).starts_with(": ")) {
            return parseWhole<std::uint64_t>(line.substr(label.size() + 2));
        }
    }
    return std::nullopt;
}

std::vector<ProcessId> parseNumbers(std::string_view text) {
    std::vector<ProcessId> numbers;
    for (const auto part : split(text, ' ')) {
        if (const auto number = parseWhole<ProcessId>(part); number && *number > 0) {
            numbers.push_back(*number);
        }
    }
    return numbers;
}

std::optional<ProcessId> parseInnermostId(std::string_view status) {
    for (const auto line : split(status, '\n')) {
        if (line.starts_with("NSpid:\t")) {
            return parseWhole<ProcessId>(line.substr(line.rfind('\t') + 1));
        }
    }
    return std::nullopt;
}

bool statusBelongsTo(std::string_view status, std::uint32_t user) {
    for (const auto line : split(status, '\n')) {
        const auto fields = split(line, '\t');
        if (fields.front() == "Uid:" && fields.size() > 2) {
            return parseWhole<std::uint32_t>(fields[1]) == user && parseWhole<std::uint32_t>(fields[2]) == user;
        }
    }
    return false;
}

std::optional<std::string> environmentValue(std::string_view environ, std::string_view name) {
    while (!environ.empty()) {
        const auto end = environ.find('\0');
        if (end == std::string_view::npos) {
            return std::nullopt;
        }
        const auto entry = environ.substr(0, end);
        if (entry.size() > name.size() && entry.starts_with(name) && entry[name.size()] == '=') {
            return std::string(entry.substr(name.size() + 1));
        }
        environ.remove_prefix(end + 1);
    }
    return std::nullopt;
}

std::optional<std::string> parseFlatpakApplication(std::string_view info) {
    bool inApplication = false;
    for (const auto line : split(info, '\n')) {
        if (line.starts_with('[')) {
            inApplication = line == "[Application]";
        } else if (inApplication && line.starts_with("name=") && line.size() > 5) {
            return std::string(line.substr(5));
        }
    }
    return std::nullopt;
}

std::optional<std::string> parseScopeApplication(std::string_view cgroup, ProcessId pid) {
    constexpr std::string_view suffix = ".scope";
    for (const auto line : split(cgroup, '\n')) {
        auto unit = line.substr(line.rfind('/') + 1);
        if (!unit.starts_with("app-") || !unit.ends_with(suffix)) {
            continue;
        }
        unit.remove_suffix(suffix.size());
        const auto parts = split(unit, '-');
        if ((parts.size() == 3 || parts.size() == 4) && parseWhole<ProcessId>(parts.back()) == pid) {
            return unescapeUnitName(parts[parts.size() - 2]);
        }
    }
    return std::nullopt;
}

} // namespace ambrel
