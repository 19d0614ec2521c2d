#include "Engine/QuitEvent.h"

#include "Core/Files.h"
#include "Core/Utf8.h"
#include "Engine/IsoDate.h"

#include <algorithm>

namespace ambrel {

namespace {

constexpr std::size_t window = 65'536;
constexpr std::size_t fewestFields = 6;

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

/// Absent for a line with too few fields.
std::optional<QuitEvent> parseLine(std::string_view line) {
    const auto fields = split(line, '\t');
    if (fields.size() < fewestFields) {
        return std::nullopt;
    }
    const auto detail = std::find_if(fields.begin() + fewestFields, fields.end(),
                                     [](auto field) { return !field.starts_with("by_ambrel_"); });
    return QuitEvent{
        .id = Uuid::random(),
        .date = parseIsoDate(fields[0]),
        .path = std::string(fields[1]),
        .action = std::string(fields[2]),
        .name = std::string(fields[4].empty() ? fields[3] : fields[4]),
        .detail = detail == fields.end() ? std::string() : std::string(*detail),
    };
}

std::string_view wholeLines(std::string_view text, bool startsMidFile) {
    if (startsMidFile) {
        const auto end = text.find('\n');
        text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    }
    // The writer may be in the middle of the last line.
    return endsInsideCharacter(text) ? text.substr(0, text.rfind('\n') + 1) : text;
}

} // namespace

std::vector<QuitEvent> QuitEvent::loadRecent(const std::filesystem::path& file, std::size_t limit) {
    // The byte before the window tells whether a line starts right with it.
    const auto tail = readFileTail(file, window + 1);
    const auto* const text = std::get_if<std::string>(&tail);
    return text == nullptr ? std::vector<QuitEvent>() : parse(*text, text->size() > window, limit);
}

std::vector<QuitEvent> QuitEvent::parse(std::string_view text, bool startsMidFile, std::size_t limit) {
    std::vector<QuitEvent> events;
    text = wholeLines(text, startsMidFile);
    if (!isValidUtf8(text)) {
        return events;
    }
    const auto lines = split(text, '\n');
    for (auto line = lines.rbegin(); line != lines.rend() && events.size() < limit; ++line) {
        if (auto event = parseLine(*line)) {
            events.push_back(*std::move(event));
        }
    }
    return events;
}

} // namespace ambrel
