#include "Platform/Linux/ApplicationMatch.h"
#include "Platform/Linux/ProcFiles.h"

#include <gtest/gtest.h>

namespace ambrel {

namespace {

using namespace std::string_literals;

TEST(ProcFilesTests, StartIsCountedFromTheEndOfTheName) {
    const auto rest = " S 1 2 3 4 5 6 7 8 9 10 11 12 13 14 15 16 17 18 4711 20 21\n"s;
    for (const auto* const name : {"(cat)", "((sd-pam))", "(a) R 1 (b)", "()", "(tab\tand\nline)"}) {
        EXPECT_EQ(parseStartTicks("42 "s + name + rest), 4711) << name;
    }
    for (const auto* const broken : {"", ")", "42 (cat)", "42 (cat) S 1 2", "42 cat"}) {
        EXPECT_FALSE(parseStartTicks(broken)) << broken;
    }
}

TEST(ProcFilesTests, WorkIsReadFromStatAndIo) {
    const auto facts = parseStat("42 (a) R (b) D 1 2 3 4 5 6 7 8 9 10 100 20 3000 4 19 20 21\n");
    ASSERT_TRUE(facts);
    EXPECT_EQ(facts->state, 'D');
    EXPECT_EQ(facts->processorTicks, 3124);
    for (const auto* const broken : {"", "42 (cat) S 1 2", "42 (cat)S 1 2 3 4 5 6 7 8 9 10 1 2 3 4",
                                     "42 (cat) S 1 2 3 4 5 6 7 8 9 10 100 20 3000", "42 cat D"}) {
        EXPECT_FALSE(parseStat(broken)) << broken;
    }
    const auto io = "rchar: 1\nwchar: 22\nread_bytes: 3\nwrite_bytes: 44\ncancelled_write_bytes: 5\n";
    EXPECT_EQ(labelledNumber(io, "wchar"), 22);
    EXPECT_EQ(labelledNumber(io, "write_bytes"), 44);
    EXPECT_FALSE(labelledNumber(io, "bytes"));
    EXPECT_FALSE(labelledNumber("wchar: many\n", "wchar"));
    EXPECT_EQ(parseNumbers("12 345 x -1 0 6\n"), (std::vector<ProcessId>{12, 345}));
    EXPECT_EQ(parseInnermostId("Pid:\t9\nNSpid:\t9\t7\t2\nNSpgid:\t1\n"), 2);
    EXPECT_FALSE(parseInnermostId("Pid:\t9\n"));
}

TEST(ProcFilesTests, BothUsersMustBeOurs) {
    EXPECT_TRUE(statusBelongsTo("Name:\tcat\nUid:\t1000\t1000\t1000\t1000\n", 1000));
    EXPECT_FALSE(statusBelongsTo("Name:\tsudo\nUid:\t1000\t0\t0\t0\n", 1000));
    EXPECT_FALSE(statusBelongsTo("Name:\tUid:\t1000\t1000\nUid:\t0\t0\t0\t0\n", 1000));
    EXPECT_FALSE(statusBelongsTo("Uid:\t1000", 1000));
    EXPECT_FALSE(statusBelongsTo("", 0));
}

TEST(ProcFilesTests, EnvironmentHasWholeNamesAndWholeValues) {
    const auto environ = "NAME2=two\0NAME=one=1\0EMPTY=\0NAME=again\0CUT=of"s;
    EXPECT_EQ(environmentValue(environ, "NAME"), "one=1");
    EXPECT_EQ(environmentValue(environ, "EMPTY"), "");
    EXPECT_FALSE(environmentValue(environ, "CUT"));
    EXPECT_FALSE(environmentValue(environ, "two"));
}

TEST(ProcFilesTests, FlatpakNamesItsApplicationInItsOwnSection) {
    EXPECT_EQ(parseFlatpakApplication("[Instance]\nname=x\n[Application]\nruntime=r\nname=org.example.App\n"),
              "org.example.App");
    EXPECT_FALSE(parseFlatpakApplication("[Runtime]\nname=org.example.Runtime\n"));
    EXPECT_FALSE(parseFlatpakApplication("[Application]\nname=\n"));
}

TEST(ProcFilesTests, ScopeCountsForTheProcessItWasMadeFor) {
    const auto scope = [](const std::string& unit) {
        return "0::/user.slice/app.slice/" + unit + "\n";
    };
    const struct {
        std::string unit;
        std::optional<std::string> id;
    } cases[] = {
        {"app-org.example.App-77.scope", "org.example.App"},
        {"app-gnome-org.example.App-77.scope", "org.example.App"},
        {R"(app-gnome-some\x2dapp-77.scope)", "some-app"},
        {R"(app-broken\x2-77.scope)", R"(broken\x2)"},
        {"app-gnome-org.gnome.Terminal-76.scope", std::nullopt}, // inherited from a terminal
        {"app-org.example.App-77.service", std::nullopt},
        {"session-77.scope", std::nullopt},
        {"app-77.scope", std::nullopt},
    };
    for (const auto& [unit, id] : cases) {
        EXPECT_EQ(parseScopeApplication(scope(unit), 77), id) << unit;
    }
    EXPECT_EQ(parseScopeApplication("1:name=systemd:/init.scope\n" + scope("app-x-77.scope"), 77), "x");
}

TEST(ProcFilesTests, InheritedLaunchesDoNotCount) {
    const auto launched = "GIO_LAUNCHED_DESKTOP_FILE=/usr/share/applications/kde/a.b.desktop\0"s;
    EXPECT_EQ(launchedEntry(launched + "GIO_LAUNCHED_DESKTOP_FILE_PID=77\0"s, 77), "kde-a.b");
    EXPECT_EQ(launchedEntry(launched + "GIO_LAUNCHED_DESKTOP_FILE_PID=76\0"s, 77), "");
    EXPECT_EQ(launchedEntry(launched, 77), "");

    const auto snap = "SNAP_INSTANCE_NAME=code\0"s;
    const auto hint = snap + "BAMF_DESKTOP_FILE_HINT=/var/lib/snapd/desktop/applications/code_url.desktop\0"s;
    EXPECT_EQ(snapEntry(snap, "/snap/code/1/bin/code"), "code_code");
    EXPECT_EQ(snapEntry(hint, "/snap/code/1/bin/code"), "code_url");
    EXPECT_EQ(snapEntry(hint, "/usr/bin/gedit"), "");
    EXPECT_EQ(snapEntry(hint, "/snap/codeblocks/1/bin/codeblocks"), "");
}

} // namespace

} // namespace ambrel
