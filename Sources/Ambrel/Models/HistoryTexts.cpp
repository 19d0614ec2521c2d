#include "Models/HistoryTexts.h"

#include "Core/Localized.h"
#include "Engine/QuitEvent.h"
#include "Models/RelativeTime.h"

#include <array>
#include <string_view>
#include <utility>

#include <fmt/format.h>

namespace ambrel {

namespace {

using Row = std::pair<std::string_view, const char*>;

constexpr std::array symbolsOfPaths{Row{"idle", "moon.zzz"}, Row{"hidden", "eye.slash"}};

constexpr std::array endings{Row{"hidden", translatable("ambrel", "hidden")},
                             Row{"force-terminated", translatable("ambrel", "force quit")}};

constexpr std::array heldBackBecause{
    Row{"skipped(screen-locked)", translatable("ambrel", "Screen was locked — the zero window count wasn't trusted.")},
    Row{"skipped(session-inactive)", translatable("ambrel", "Another user had the screen — not trusted.")},
    Row{"skipped(session-ending)", translatable("ambrel", "The session was ending — not trusted.")},
    Row{"skipped(cg-windows-exist)", translatable("ambrel", "The window server still saw windows — quit refused.")},
    Row{"skipped(playing)", translatable("ambrel", "It was playing — kept until that stops.")},
    Row{"skipped(inhibiting)", translatable("ambrel", "It was blocking sleep or logout — kept until that stops.")},
    Row{"skipped(no-answer)", translatable("ambrel", "A service didn't say in time whether it was playing — kept.")},
    Row{"skipped(working)", translatable("ambrel", "It was still working after a minute — kept.")},
    Row{"skipped(shadow-mode)", translatable("ambrel", "Shadow mode — decision logged, nothing quit.")},
    Row{"skipped(dev-mode)", translatable("ambrel", "Dev mode — not on the test whitelist.")}};

constexpr std::array doneBecause{Row{"last-window", translatable("ambrel", "Its last window closed.")},
                                 Row{"hidden", translatable("ambrel", "Hidden, and opted into quit-when-hidden.")},
                                 Row{"quit-all", translatable("ambrel", "Part of Quit All.")},
                                 Row{"manual", translatable("ambrel", "Quit from the Running Apps list.")}};

template <typename Rows> const char* lookUp(const Rows& rows, std::string_view word, const char* otherwise) {
    for (const auto& [key, text] : rows) {
        if (key == word) {
            return text;
        }
    }
    return otherwise;
}

/// `word` itself where the rows don't have it.
template <typename Rows> std::string told(const Rows& rows, const std::string& word) {
    const char* const text = lookUp(rows, word, nullptr);
    return text == nullptr ? word : localized(text);
}

std::string idleSubtitle(std::string_view detail) {
    return detail.empty()
               ? localized(translatable("ambrel", "Idle past its limit."))
               : fmt::format(fmt::runtime(localized(translatable("ambrel", "Idle past its limit ({})."))), detail);
}

std::string abbreviated(const std::filesystem::path& file, const std::filesystem::path& home) {
    const auto below = file.lexically_relative(home);
    const bool isInHome = home.has_relative_path() && !below.empty() && *below.begin() != "..";
    return isInHome ? ("~" / below).string() : file.string();
}

} // namespace

bool HistoryTexts::isSkipped(const QuitEvent& event) {
    return event.action.starts_with("skipped");
}

std::string HistoryTexts::symbol(const QuitEvent& event) {
    return isSkipped(event) ? "shield.checkered" : lookUp(symbolsOfPaths, event.path, "xmark.circle");
}

std::string HistoryTexts::title(const QuitEvent& event) {
    const char* const ending = isSkipped(event) ? translatable("ambrel", "held back")
                                                : lookUp(endings, event.action, translatable("ambrel", "quit"));
    return fmt::format("{} — {}", event.name, localized(ending));
}

std::string HistoryTexts::subtitle(const QuitEvent& event) {
    if (isSkipped(event)) {
        return told(heldBackBecause, event.action);
    }
    return event.path == "idle" ? idleSubtitle(event.detail) : told(doneBecause, event.path);
}

std::string HistoryTexts::when(const QuitEvent& event, Date now, const std::string& locale) {
    return event.date ? relativeTime(*event.date, now, locale) : std::string();
}

std::string HistoryTexts::caption(std::size_t count, const std::filesystem::path& file,
                                  const std::filesystem::path& home) {
    return fmt::format(fmt::runtime(localized(
                           translatable("ambrel", "Showing the last {} decisions. The full log never rotates: {}"))),
                       count, abbreviated(file, home));
}

} // namespace ambrel
