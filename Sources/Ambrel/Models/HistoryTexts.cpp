#include "Models/HistoryTexts.h"

#include "Engine/QuitEvent.h"
#include "Models/RelativeTime.h"

#include <array>
#include <string_view>
#include <utility>

#include <fmt/format.h>

namespace ambrel {

namespace {

using Row = std::pair<std::string_view, std::string_view>;

constexpr std::array symbolsOfPaths{Row{"idle", "moon.zzz"}, Row{"hidden", "eye.slash"}};

constexpr std::array endings{Row{"hidden", "hidden"}, Row{"force-terminated", "force quit"}};

constexpr std::array heldBackBecause{
    Row{"skipped(screen-locked)", "Screen was locked — the zero window count wasn't trusted."},
    Row{"skipped(session-inactive)", "Another user had the screen — not trusted."},
    Row{"skipped(cg-windows-exist)", "The window server still saw windows — quit refused."},
    Row{"skipped(shadow-mode)", "Shadow mode — decision logged, nothing quit."},
    Row{"skipped(dev-mode)", "Dev mode — not on the test whitelist."}};

constexpr std::array doneBecause{
    Row{"last-window", "Its last window closed."}, Row{"hidden", "Hidden, and opted into quit-when-hidden."},
    Row{"quit-all", "Part of Quit All."}, Row{"manual", "Quit from the Running Apps list."}};

template <typename Rows> std::string lookUp(const Rows& rows, std::string_view word, std::string_view otherwise) {
    for (const auto& [key, text] : rows) {
        if (key == word) {
            return std::string(text);
        }
    }
    return std::string(otherwise);
}

std::string idleSubtitle(std::string_view detail) {
    return detail.empty() ? "Idle past its limit." : fmt::format("Idle past its limit ({}).", detail);
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
    return fmt::format("{} — {}", event.name, isSkipped(event) ? "held back" : lookUp(endings, event.action, "quit"));
}

std::string HistoryTexts::subtitle(const QuitEvent& event) {
    if (isSkipped(event)) {
        return lookUp(heldBackBecause, event.action, event.action);
    }
    return event.path == "idle" ? idleSubtitle(event.detail) : lookUp(doneBecause, event.path, event.path);
}

std::string HistoryTexts::when(const QuitEvent& event, Date now, const std::string& locale) {
    return event.date ? relativeTime(*event.date, now, locale) : std::string();
}

std::string HistoryTexts::caption(std::size_t count, const std::filesystem::path& file,
                                  const std::filesystem::path& home) {
    return fmt::format("Showing the last {} decisions. The full log never rotates: {}", count, abbreviated(file, home));
}

} // namespace ambrel
