#include "Core/ExceptionLogger.h"
#include "Platform/Linux/JournalSink.h"
#include "Platform/Linux/LinuxBundle.h"
#include "Platform/Linux/ProcessEnvironment.h"
#include "Platform/Linux/XdgFileLocations.h"
#include "Support/TemporaryFolder.h"

#include <cstdlib>
#include <fstream>
#include <stdexcept>
#include <thread>

#include <gtest/gtest.h>

namespace ambrel {

namespace {

namespace fs = std::filesystem;

TEST(LinuxBundleTests, IsTheNearestFolderThatSaysWhoItIs) {
    const TemporaryFolder home;
    const auto app = home.path() / "Ambrel.app";
    const auto executable = app / "Inner.app" / "bin" / "ambrel";
    fs::create_directories(executable.parent_path());
    const auto identifierWith = [&](const std::string& info) {
        std::ofstream(app / "Info.json") << info;
        return LinuxBundle(executable).bundleIdentifier();
    };
    EXPECT_EQ(identifierWith(R"({"identifier": "app.ambrel.Ambrel", "version": "1.2"})"), "app.ambrel.Ambrel");
    EXPECT_EQ(LinuxBundle(executable).bundleURL(), app);
    EXPECT_EQ(LinuxBundle(executable).shortVersion(), "1.2");
    EXPECT_EQ(LinuxBundle(home.path() / "ambrel").bundleURL(), home.path());

    for (const auto* const info : {"", "{", "[]", "7", R"({"identifier": 7})", R"({"version": "1"})"}) {
        EXPECT_FALSE(identifierWith(info)) << info;
        EXPECT_EQ(LinuxBundle(executable).bundleURL(), executable.parent_path()) << info;
        EXPECT_FALSE(LinuxBundle(executable).shortVersion()) << info;
    }
    fs::remove(app / "Info.json");
    EXPECT_FALSE(LinuxBundle(executable).bundleIdentifier());
    EXPECT_EQ(LinuxBundle::ofThisProcess().bundleURL(), fs::read_symlink("/proc/self/exe").parent_path());
}

TEST(XdgFileLocationsTests, IgnoresInvalidFolders) {
    const ProcessEnvironment environment;
    const XdgFileLocations locations(environment);
    const auto home = fs::path(environment.value("HOME").value());
    const auto kept = environment.value("XDG_CONFIG_HOME").value();
    EXPECT_EQ(locations.applicationSupport(), kept);
    for (const auto* const invalid : {"", "relative/folder"}) {
        setenv("XDG_CONFIG_HOME", invalid, 1);
        setenv("XDG_STATE_HOME", invalid, 1);
        EXPECT_EQ(locations.applicationSupport(), home / ".config");
        EXPECT_EQ(locations.logs(), home / ".local/state");
    }
    setenv("XDG_STATE_HOME", "/elsewhere", 1);
    EXPECT_EQ(locations.logs(), "/elsewhere");
    setenv("HOME", "", 1);
    EXPECT_TRUE(locations.applicationSupport().is_absolute());
    setenv("HOME", home.c_str(), 1);
    setenv("XDG_CONFIG_HOME", kept.c_str(), 1);
    unsetenv("XDG_STATE_HOME");
}

TEST(JournalSinkTests, WritesATimedLine) {
    testing::internal::CaptureStderr();
    JournalSink().write("engine", LogLevel::error, "went wrong");
    JournalSink().write("engine", LogLevel::debug, "for the journal alone");
    const auto line = testing::internal::GetCapturedStderr();
    EXPECT_EQ(std::count(line.begin(), line.end(), '\n'), 1);
    EXPECT_EQ(line.substr(std::min<std::size_t>(12, line.size())), " error engine: went wrong\n");
}

void dieOf(void (*cause)()) {
    static JournalSink sink;
    LogSink::install(&sink);
    installExceptionLogger();
    // A second one must not make the handler its own successor.
    installExceptionLogger();
    // Beside the test's own frames, which would catch it.
    std::thread(cause).join();
}

TEST(ExceptionLoggerDeathTest, NamesWhatNobodyCaught) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_DEATH(dieOf([] { throw std::runtime_error("no fuel"); }),
                 "fault crash: uncaught std::runtime_error: no fuel\n(.|\n)*terminate called after");
    EXPECT_DEATH(dieOf([] { throw 7; }), "fault crash: uncaught int: nil\n");
    EXPECT_DEATH(dieOf([] { std::terminate(); }), "fault crash: uncaught nil: nil\n");
}

} // namespace

} // namespace ambrel
