#include "Core/FileDescriptor.h"
#include "Engine/QuitEvent.h"
#include "Engine/TerminationAudit.h"
#include "Support/AmbrelTest.h"
#include "Support/ChildProcess.h"
#include "Support/TextFile.h"

#include <limits>

#include <fmt/format.h>

#include <fcntl.h>
#include <signal.h>
#include <sys/resource.h>
#include <sys/stat.h>

namespace ambrel {
namespace {

namespace fs = std::filesystem;

using Path = TerminationAudit::Path;
using Action = TerminationAudit::Action;

class TerminationAuditTest : public AmbrelTest {
protected:
    TerminationAuditTest() { desktop.workspace().ownPID = 811; }

    /// Records one line from a run of the program of its own.
    void recordOnce(const std::string& name, const std::string& detail = {}) {
        TerminationAudit audit(desktop, clock);
        audit.record(Path::lastWindow, "org.example.App", name, 812, Action::terminated, detail);
        audit.drain();
    }
    std::string line(const std::string& fields) {
        return fmt::format("2026-11-16T17:26:42Z\t{}\tby_ambrel_pid=811\tby_ambrel_path={}\n", fields,
                           desktop.bundle().bundleURL().string());
    }

    FakeClock clock{Date(Seconds(1'794'850'002.7))};
    fs::path file = desktop.fileLocations().logs() / "Ambrel" / "terminations.log";
    fs::path custom = home.path() / "custom.log";
};

TEST_F(TerminationAuditTest, WritesOneLineForEachDecision) {
    TerminationAudit audit(desktop, clock);
    audit.record(Path::lastWindow, "id", "Name", -1, Action::terminated, "windows=0");
    audit.record(Path::quitAll, "id", "", 812, Action::skippedSessionInactive);
    const auto expected = line("last-window\tterminated\tid\tName\tpid=-1\twindows=0") +
                          line("quit-all\tskipped(session-inactive)\tid\t\tpid=812");
    audit.drain();
    EXPECT_EQ(textOf(file), expected);
}

TEST_F(TerminationAuditTest, TheReaderGetsBackWhatWasWritten) {
    recordOnce("caf\xE9\u20ac", "windows=0");
    clock.current = Date(Seconds(std::numeric_limits<double>::infinity()));
    recordOnce("two\tfields");
    const auto events = QuitEvent::loadRecent(file, 10);
    ASSERT_EQ(events.size(), 2U);
    EXPECT_EQ(events[0].date, std::nullopt);
    EXPECT_EQ(events[0].name, "two") << "nothing is escaped";
    EXPECT_EQ(events[1].date, Date(Seconds(1'794'850'002)));
    EXPECT_EQ(events[1].name, "caf\uFFFD\u20ac") << "one bad name spoils no other line";
    EXPECT_EQ(events[1].detail, "windows=0");
}

TEST_F(TerminationAuditTest, TheDefaultFileIsMadeAtFirstUseAndOnlyGrows) {
    TerminationAudit audit(desktop, clock);
    EXPECT_FALSE(fs::exists(file));
    EXPECT_EQ(audit.fileURL(), file);
    EXPECT_TRUE(fs::exists(file));
    EXPECT_EQ(fs::status(file).permissions(), fs::perms::owner_read | fs::perms::owner_write);
    EXPECT_EQ(fs::status(file.parent_path()).permissions(), fs::perms::owner_all);

    writeText(file, "from before, unterminated");
    recordOnce("Name");
    EXPECT_TRUE(textOf(file).starts_with("from before, unterminated2026-"));
    fs::remove(file);
    audit.record(Path::idle, "id", "Again", 1, Action::hidden);
    audit.drain();
    EXPECT_EQ(QuitEvent::loadRecent(file, 10).size(), 1U) << "removed while the program runs";
}

TEST_F(TerminationAuditTest, APlaceThatTakesNoLinesIsLeftAlone) {
    fs::create_directory(home.path() / "folder");
    fs::create_symlink("loop", home.path() / "loop");
    ASSERT_EQ(::mkfifo((home.path() / "pipe").c_str(), 0600), 0);
    ASSERT_EQ(::mkfifo((home.path() / "read pipe").c_str(), 0600), 0);
    const FileDescriptor reader(::open((home.path() / "read pipe").c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
    for (const auto* name : {"folder", "loop", "pipe", "read pipe", "/dev/full", "missing/log", "pipe/log"}) {
        const auto place = home.path() / name;
        const auto before = fs::symlink_status(place).type();
        desktop.environment().set("AMBREL_TERMLOG", place.string());
        recordOnce("Name");
        EXPECT_EQ(fs::symlink_status(place).type(), before) << name;
    }
}

TEST_F(TerminationAuditTest, ALineCutShortByAFullDiskDoesNotSwallowTheNext) {
    recordOnce("First");
    rlimit old{};
    ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &old), 0);
    ::signal(SIGXFSZ, SIG_IGN);
    const rlimit full{fs::file_size(file) + 70, old.rlim_max};
    TerminationAudit audit(desktop, clock);
    for (const char* name : {"Cut", "Lost", "Next"}) {
        ::setrlimit(RLIMIT_FSIZE, std::string_view(name) == "Next" ? &old : &full);
        audit.record(Path::lastWindow, "org.example.App", name, 812, Action::terminated);
        audit.drain();
    }
    const auto events = QuitEvent::loadRecent(file, 10);
    ASSERT_FALSE(events.empty());
    EXPECT_EQ(events.front().name, "Next");
    EXPECT_EQ(events.back().name, "First");
}

TEST_F(TerminationAuditTest, RunningCopiesDoNotMixTheirLines) {
    desktop.environment().set("AMBREL_TERMLOG", custom.string());
    const auto recordMany = [this] {
        TerminationAudit audit(desktop, clock);
        for (int count = 0; count < 200; ++count) {
            audit.record(Path::idle, "id", std::string(500, 'x'), 1, Action::hidden);
        }
        audit.drain();
        return 0;
    };
    ChildProcess other(recordMany);
    recordMany();
    EXPECT_EQ(other.collect(), 0);
    const auto expected = line("idle\thidden\tid\t" + std::string(500, 'x') + "\tpid=1");
    const auto text = textOf(custom);
    ASSERT_EQ(text.size(), 400 * expected.size());
    for (std::size_t at = 0; at < text.size(); at += expected.size()) {
        ASSERT_EQ(text.substr(at, expected.size()), expected);
    }
}

} // namespace
} // namespace ambrel
