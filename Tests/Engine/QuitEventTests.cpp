#include "Engine/IsoDate.h"
#include "Engine/QuitEvent.h"
#include "Support/TemporaryFolder.h"
#include "Support/TextFile.h"

#include <cmath>
#include <limits>

#include <fmt/format.h>
#include <gtest/gtest.h>

namespace ambrel {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t window = 65'536;
constexpr double someday = 1'794'850'002; // 2026-11-16T17:26:42Z

std::string lineOf(const std::string& name) {
    return fmt::format("2026-11-16T17:26:42Z\tidle\thidden\torg.example.App\t{}\tpid=8\tby_ambrel_pid=9\n", name);
}

/// The names of the events, newest first.
std::vector<std::string> names(const std::vector<QuitEvent>& events) {
    std::vector<std::string> all;
    std::ranges::transform(events, std::back_inserter(all), &QuitEvent::name);
    return all;
}

using Names = std::vector<std::string>;

TEST(QuitEventTest, TakesALineApart) {
    struct Case {
        const char* line;
        const char* name;
        const char* detail;
    };
    const Case cases[] = {
        {"2026-11-16T17:26:42Z\tp\ta\tid\tName\tpid=8\twindows=0\tby_ambrel_pid=9\tby_ambrel_path=/x", "Name",
         "windows=0"},
        {"2026-11-16T17:26:42Z\tp\ta\tid\tName\tpid=8\tby_ambrel_pid=9\tby_ambrel_path=/x", "Name", ""},
        {"2026-11-16T17:26:42Z\tp\ta\tid\tName\tpid=8\tby_ambrel_pid=9\tlate", "Name", "late"},
        {"2026-11-16T17:26:42Z\tp\ta\tid\tName\tpid=8\tby_ambrel_detail\tby_ambrel_pid=9", "Name", ""},
        {"2026-11-16T17:26:42Z\tp\ta\tid\t\tpid=8", "id", ""},
        {"2026-11-16T17:26:42Z\tp\ta\t\t\t", "", ""},
    };
    for (const auto& [line, name, detail] : cases) {
        const auto events = QuitEvent::parse(line, false, 10);
        ASSERT_EQ(events.size(), 1U) << line;
        EXPECT_EQ(events[0].date, Date(Seconds(someday))) << line;
        EXPECT_EQ(events[0].path, "p");
        EXPECT_EQ(events[0].action, "a");
        EXPECT_EQ(events[0].name, name) << line;
        EXPECT_EQ(events[0].detail, detail) << line;
    }
}

TEST(QuitEventTest, NewestFirstUpToTheLimitWithoutBlankAndShortLines) {
    const auto text = lineOf("1") + "\n\nfive\tfields\tare\ttoo\tfew\n" + lineOf("2") + lineOf("3") + "\n";
    EXPECT_EQ(names(QuitEvent::parse(text, false, 10)), (Names{"3", "2", "1"}));
    EXPECT_EQ(names(QuitEvent::parse(text, false, 3)), (Names{"3", "2", "1"}));
    EXPECT_EQ(names(QuitEvent::parse(text, false, 2)), (Names{"3", "2"}));
    EXPECT_EQ(names(QuitEvent::parse(text, false, 0)), Names());
    EXPECT_EQ(names(QuitEvent::parse("", false, 10)), Names());
}

TEST(QuitEventTest, ACutTailLosesOnlyWhatWasCut) {
    const auto whole = lineOf("1") + lineOf("caf\u00e9") + lineOf("3");
    EXPECT_EQ(names(QuitEvent::parse("\xA9rest\n" + whole, true, 10)), (Names{"3", "caf\u00e9", "1"}));
    EXPECT_EQ(names(QuitEvent::parse("fragment without an end", true, 10)), Names());
    EXPECT_EQ(names(QuitEvent::parse("\n" + whole, true, 1)), Names{"3"});

    const auto accent = whole.find("\xA9");
    EXPECT_EQ(names(QuitEvent::parse(whole.substr(0, accent), false, 10)), Names{"1"}) << "inside a character";
    const auto afterPid = whole.rfind("pid=8") + 3;
    EXPECT_EQ(names(QuitEvent::parse(whole.substr(0, afterPid), false, 10)), (Names{"3", "caf\u00e9", "1"}));
    EXPECT_EQ(names(QuitEvent::parse("\xC3", false, 10)), Names());
}

TEST(QuitEventTest, AStrayByteWithinMakesTheListEmpty) {
    EXPECT_EQ(names(QuitEvent::parse(lineOf("1") + lineOf("\xE9") + lineOf("3"), false, 10)), Names());
}

TEST(QuitEventTest, ReadsOnlyTheLastBytesOfAFile) {
    const TemporaryFolder folder;
    const auto file = folder.path() / "log";
    const auto filler = [](std::size_t size) {
        return std::string(size - 1, '-') + "\n";
    };
    const auto first = lineOf("first");
    struct Case {
        const char* what;
        std::string before;
        std::size_t size; ///< from the first line to the end
        Names expected;
    };
    const Case cases[] = {
        {"a whole file that just fits", "", window, {"last", "first"}},
        {"a line right at the start of the window", "earlier\n", window, {"last", "first"}},
        {"a line one byte before the window", "", window + 1, {"last"}},
        {"a line one byte before the window, after others", "earlier\n", window + 1, {"last"}},
    };
    for (const auto& [what, before, size, expected] : cases) {
        const auto last = lineOf("last");
        writeText(file, before + first + filler(size - first.size() - last.size()) + last);
        EXPECT_EQ(names(QuitEvent::loadRecent(file, 10)), expected) << what;
    }
}

TEST(IsoDateTest, ReadsAndWritesTheSameForm) {
    const std::pair<double, const char*> cases[] = {
        {someday, "2026-11-16T17:26:42Z"},
        {0, "1970-01-01T00:00:00Z"},
        {-0.5, "1969-12-31T23:59:59Z"},
        {951'782'400.999, "2000-02-29T00:00:00Z"},
        {-62'167'219'200, "0000-01-01T00:00:00Z"},
        {253'402'300'799.9, "9999-12-31T23:59:59Z"},
    };
    for (const auto& [seconds, text] : cases) {
        EXPECT_EQ(formatIsoDate(Date(Seconds(seconds))), text);
        EXPECT_EQ(parseIsoDate(text), Date(Seconds(std::floor(seconds))));
    }
    const auto infinity = std::numeric_limits<double>::infinity();
    for (const double seconds :
         {-62'167'219'200.5, 253'402'300'800.0, 1e300, -1e300, infinity, -infinity, std::nan("")}) {
        EXPECT_EQ(formatIsoDate(Date(Seconds(seconds))), "?") << seconds;
    }
}

TEST(IsoDateTest, TakesOffsetsAndNoOtherForm) {
    for (const auto* same : {"2026-11-16T18:26:42+01:00", "2026-11-16T18:26:42+0100", "2026-11-16T11:56:42-05:30",
                             "2026-11-17T07:26:42+1400", "2026-11-16T17:26:42-00:00"}) {
        EXPECT_EQ(parseIsoDate(same), Date(Seconds(someday))) << same;
    }
    for (const auto* bad :
         {"", "?", "2026-11-16", "2026-11-16T17:26:42", "2026-11-16 17:26:42Z", "2026-11-16T17:26:42.5Z",
          "2026-11-16T17:26:42Z ", "20261116T172642Z", "2026-13-16T17:26:42Z", "2026-02-29T17:26:42Z",
          "2026-11-31T17:26:42Z", "2026-11-16T24:00:00Z", "2026-11-16T17:60:42Z", "2026-11-16T17:26:60Z",
          "2026-11-16T17:26:42+01", "2026-11-16T17:26:42+25:00", "2026-11-16T17:26:42+01:60", "-026-11-16T17:26:42Z"}) {
        EXPECT_FALSE(parseIsoDate(bad)) << bad;
    }
}

} // namespace
} // namespace ambrel
