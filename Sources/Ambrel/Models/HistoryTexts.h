#pragma once

#include "Core/Clock.h"

#include <cstddef>
#include <filesystem>
#include <string>

namespace ambrel {

struct QuitEvent;

/// What the history says of one decision, in plain words.
struct HistoryTexts {
    HistoryTexts() = delete;

    /// A quit was held back.
    [[nodiscard]] static bool isSkipped(const QuitEvent& event);
    /// The name of a symbol.
    [[nodiscard]] static std::string symbol(const QuitEvent& event);
    [[nodiscard]] static std::string title(const QuitEvent& event);
    [[nodiscard]] static std::string subtitle(const QuitEvent& event);
    /// Empty for an event without a date.
    [[nodiscard]] static std::string when(const QuitEvent& event, Date now, const std::string& locale = {});

    /// The line under a list of `count` decisions; `home` is abbreviated to a tilde in the file's path.
    [[nodiscard]] static std::string caption(std::size_t count, const std::filesystem::path& file,
                                             const std::filesystem::path& home);
};

} // namespace ambrel
