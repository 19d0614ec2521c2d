#pragma once

#include "Core/Clock.h"
#include "Core/Uuid.h"

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace ambrel {

/// One line of the decisions log, read back.
struct QuitEvent {
    Uuid id;                  ///< new at each reading
    std::optional<Date> date; ///< absent where the text doesn't parse
    std::string path;         ///< the raw word, also one that this version doesn't know
    std::string action;       ///< the raw word
    std::string name;
    std::string detail;

    /// The newest events first, at most `limit`, from the last 64 KiB of the file. Empty if it can't be read.
    [[nodiscard]] static std::vector<QuitEvent> loadRecent(const std::filesystem::path& file, std::size_t limit);

    /// The events of a log's tail, newest first. `text` begins and ends anywhere: a character or a line that the
    /// cut went through is dropped if `startsMidFile`.
    [[nodiscard]] static std::vector<QuitEvent> parse(std::string_view text, bool startsMidFile, std::size_t limit);
};

} // namespace ambrel
