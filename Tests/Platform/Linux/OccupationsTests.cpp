#include "Platform/Linux/EventLoop.h"
#include "Platform/Linux/LinuxOccupations.h"
#include "Platform/Linux/PrivateBus.h"
#include "Support/AmbrelTest.h"

#include <fmt/core.h>
#include <gtest/gtest.h>

#include <unistd.h>

namespace ambrel {

namespace {

std::string word(std::optional<Occupation> occupation) {
    if (!occupation) {
        return "none";
    }
    return *occupation == Occupation::playing      ? "playing"
           : *occupation == Occupation::inhibiting ? "inhibiting"
                                                   : "unknown";
}

/// An application with the desktop entry "Player" and, where that matters, a process of its own.
class OccupationsTests : public AmbrelTest {
protected:
    static std::vector<std::string> python(std::vector<std::string> arguments) {
        arguments.insert(arguments.begin(), {"/usr/bin/python3", "-B", OCCUPANT});
        return arguments;
    }

    std::string ask(ProcessId pid, LinuxOccupations& asked) {
        auto& app = desktop.workspace().launch("org.example.Player", "Player", {.pid = pid});
        std::optional<std::string> answer;
        asked.ask(app, [&](std::optional<Occupation> occupation) { answer = word(occupation); });
        EXPECT_FALSE(answer) << "answered before it returned";
        EXPECT_TRUE(runUntil([&] { return answer.has_value(); }));
        return answer.value_or("");
    }
    std::string ask(ProcessId pid) { return ask(pid, occupations); }

    LinuxOccupations occupations{OCCUPATIONS, [](ProcessId) {
                                     return false;
                                 }};
};

class OccupationsOnBusTests : public OccupationsTests {
protected:
    OccupationsOnBusTests() { setenv("DBUS_SYSTEM_BUS_ADDRESS", getenv("DBUS_SESSION_BUS_ADDRESS"), 1); }
    ~OccupationsOnBusTests() override { unsetenv("DBUS_SYSTEM_BUS_ADDRESS"); }

    PrivateBus bus;
};

TEST_F(OccupationsOnBusTests, EachServiceIsHeardOfItsOwnApplication) {
    enum class Whose { service, parent, stranger };
    ChildProcess stranger({"sleep", "60"});
    const std::string ours = std::to_string(getpid());
    const struct {
        std::vector<std::string> service;
        Whose whose;
        std::string answer;
    } cases[] = {
        {{"player", "Playing", "another"}, Whose::service, "playing"},
        {{"player", "Paused", "another"}, Whose::service, "none"},
        {{"player", "Playing", "another"}, Whose::parent, "playing"},
        {{"player", "Playing", "another"}, Whose::stranger, "none"},
        {{"player", "Playing", "player"}, Whose::stranger, "playing"},
        {{"player", "Stopped", "player"}, Whose::stranger, "none"},
        {{"session", "Player.desktop"}, Whose::stranger, "inhibiting"},
        {{"session", "another"}, Whose::stranger, "none"},
        {{"login", "block", "0"}, Whose::service, "inhibiting"},
        {{"login", "block", ours}, Whose::parent, "inhibiting"},
        {{"login", "delay", "0"}, Whose::service, "none"},
        {{"login", "block", "0"}, Whose::stranger, "none"},
    };
    for (const auto& [arguments, whose, answer] : cases) {
        SCOPED_TRACE(fmt::format("{} {} {}", arguments[0], arguments[1], static_cast<int>(whose)));
        ChildProcess service(python(arguments));
        ASSERT_TRUE(service.readLine());
        EXPECT_EQ(ask(whose == Whose::service  ? service.pid()
                      : whose == Whose::parent ? getpid()
                                               : stranger.pid()),
                  answer);
    }
}

TEST_F(OccupationsOnBusTests, ServiceWithoutAnAnswerIsDoubt) {
    ChildProcess service(python({"player", "Playing", "another"}));
    ASSERT_TRUE(service.readLine());
    service.signal(SIGSTOP);
    service.awaitStop();
    EXPECT_EQ(ask(getpid()), "unknown");
    bus.daemon.signal(SIGSTOP);
    bus.daemon.awaitStop();
    EXPECT_EQ(ask(getpid()), "unknown");
    bus.daemon.signal(SIGCONT);
    service.signal(SIGCONT);
}

TEST_F(OccupationsTests, ProgramThatIsMissingOrHangsOrFails) {
    log.expectError("can't be started");
    LinuxOccupations missing("/nowhere/program", [](ProcessId) { return false; });
    EXPECT_EQ(ask(getpid(), missing), "none");
    EXPECT_EQ(ask(getpid(), missing), "none");
    EXPECT_EQ(log.count("can't be started"), 1U);
    const auto script = home.path() / "program";
    for (const auto* const text : {"#!/bin/sh\nexec sleep 60\n", "#!/bin/sh\nexit 1\n", "#!/bin/sh\necho strange\n"}) {
        writeText(script, text);
        std::filesystem::permissions(script, std::filesystem::perms::owner_all);
        LinuxOccupations broken(script, [](ProcessId) { return false; });
        EXPECT_EQ(ask(getpid(), broken), "unknown") << text;
    }
}

TEST_F(OccupationsTests, SoundServerTellsWhosePlayingItIs) {
    setenv("XDG_RUNTIME_DIR", home.path().c_str(), 1);
    EXPECT_EQ(ask(getpid()), "none");
    EXPECT_FALSE(std::filesystem::exists(home.path() / "pulse"));

    ChildProcess server({"pulseaudio", "--log-target=null", "--daemonize=no", "--disable-shm", "--exit-idle-time=-1",
                         "-n", "--load", "module-native-protocol-unix", "--load", "module-null-sink"});
    ASSERT_TRUE(runUntil([&] { return std::filesystem::exists(home.path() / "pulse" / "native"); }));
    ChildProcess stranger({"sleep", "60"});
    EXPECT_EQ(ask(getpid()), "none");
    {
        ChildProcess player({"pacat", "--playback", "/dev/zero"});
        EXPECT_TRUE(runUntil([&] { return ask(player.pid()) == "playing"; }));
        EXPECT_EQ(ask(getpid()), "playing") << "of a descendant";
        EXPECT_EQ(ask(stranger.pid()), "none");
    }
    ChildProcess recorder({"pacat", "--record"});
    EXPECT_TRUE(runUntil([&] { return ask(recorder.pid()) == "playing"; }));
    unsetenv("XDG_RUNTIME_DIR");
}

} // namespace

} // namespace ambrel
