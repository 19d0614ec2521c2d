#include "Engine/QuitEvent.h"
#include "Models/HistoryTexts.h"

#include <gtest/gtest.h>

namespace ambrel {
namespace {

QuitEvent event(const char* path, const char* action, const char* detail = "") {
    return {.id = Uuid::random(), .date = {}, .path = path, .action = action, .name = "Mail", .detail = detail};
}

TEST(HistoryTextsTests, SayWhatHappenedAndWhy) {
    struct Case {
        QuitEvent event;
        const char* symbol;
        const char* title;
        const char* subtitle;
    };
    const Case cases[] = {
        {event("last-window", "terminated", "windows=0"), "xmark.circle", "Mail — quit", "Its last window closed."},
        {event("hidden", "terminated"), "eye.slash", "Mail — quit", "Hidden, and opted into quit-when-hidden."},
        {event("idle", "terminated", "idle=1805s"), "moon.zzz", "Mail — quit", "Idle past its limit (idle=1805s)."},
        {event("idle", "hidden"), "moon.zzz", "Mail — hidden", "Idle past its limit."},
        {event("quit-all", "force-terminated"), "xmark.circle", "Mail — force quit", "Part of Quit All."},
        {event("by-magic", "vanished"), "xmark.circle", "Mail — quit", "by-magic"},
        {event("idle", "skipped(screen-locked)", "idle=1805s"), "shield.checkered", "Mail — held back",
         "Screen was locked — the zero window count wasn't trusted."},
        {event("last-window", "skipped(playing)"), "shield.checkered", "Mail — held back",
         "It was playing — kept until that stops."},
        {event("idle", "skipped(later)"), "shield.checkered", "Mail — held back", "skipped(later)"},
    };
    for (const auto& each : cases) {
        const auto words = each.event.path + " " + each.event.action;
        EXPECT_EQ(HistoryTexts::symbol(each.event), each.symbol) << words;
        EXPECT_EQ(HistoryTexts::title(each.event), each.title) << words;
        EXPECT_EQ(HistoryTexts::subtitle(each.event), each.subtitle) << words;
    }
}

TEST(HistoryTextsTests, SayWhenInTheLargestWholeUnit) {
    const Date now{Seconds(1'800'000'000)};
    struct Case {
        double secondsAgo;
        const char* locale;
        const char* text;
    };
    constexpr double hour = 3600;
    constexpr double day = 24 * hour;
    const Case cases[] = {
        {0, "en_US", "0 sec. ago"},        {59.9, "en_US", "59 sec. ago"},         {day, "en_US", "1 day ago"},
        {13 * day, "en_US", "1 wk. ago"},  {800 * day, "en_US", "2 yr. ago"},      {-5 * 60, "en_US", "in 5 min."},
        {2 * hour, "de_DE", "vor 2 Std."}, {3 * day, "en_US_POSIX", "3 days ago"},
    };
    for (const auto& each : cases) {
        auto dated = event("idle", "hidden");
        dated.date = now - Seconds(each.secondsAgo);
        EXPECT_EQ(HistoryTexts::when(dated, now, each.locale), each.text) << each.secondsAgo << each.locale;
    }
    EXPECT_EQ(HistoryTexts::when(event("idle", "hidden"), now), "");
}

TEST(HistoryTextsTests, TheCaptionCountsTheListAndShortensTheHomeFolder) {
    const std::string words = "Showing the last 3 decisions. The full log never rotates: ";
    EXPECT_EQ(HistoryTexts::caption(3, "/home/ann/.local/a.log", "/home/ann"), words + "~/.local/a.log");
    EXPECT_EQ(HistoryTexts::caption(3, "/home/anna/a.log", "/home/ann"), words + "/home/anna/a.log");
    EXPECT_EQ(HistoryTexts::caption(3, "/srv/a.log", ""), words + "/srv/a.log");
    EXPECT_EQ(HistoryTexts::caption(3, "/srv/a.log", "/"), words + "/srv/a.log");
}

} // namespace
} // namespace ambrel
