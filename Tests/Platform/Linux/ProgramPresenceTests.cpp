#include "Platform/Linux/EventLoop.h"
#include "Platform/Linux/LinuxApplicationHost.h"
#include "Platform/Linux/PrivateBus.h"
#include "Platform/Linux/ProgramPresence.h"
#include "Platform/Linux/SessionBus.h"
#include "Support/LoggedTest.h"

#include <fstream>

#include <QDBusMessage>
#include <QDBusPendingCall>
#include <QThread>

namespace ambrel {

namespace {

class ProgramPresenceTests : public LoggedTest {
protected:
    QDBusPendingCall call(const QString& member, const QVariantList& arguments,
                          const QString& interface = "org.freedesktop.Application") {
        auto message = QDBusMessage::createMethodCall("app.ambrel.Ambrel", "/app/ambrel/Ambrel", interface, member);
        message.setArguments(arguments);
        return caller.connection(Seconds(10))->asyncCall(message);
    }

    PrivateBus bus;
    SessionBus sessionBus;
    SessionBus caller;
};

TEST_F(ProgramPresenceTests, EveryWayToOpenItAgainCounts) {
    ProgramPresence presence(sessionBus);
    LinuxApplicationHost host(presence);
    EXPECT_EQ(presence.otherInstances(), std::vector<ProcessId>());
    int reopened = 0;
    const auto subscription = host.didReopen.subscribe([&] {
        EXPECT_EQ(QThread::currentThread(), qApp->thread());
        ++reopened;
    });
    const auto ping = call("Ping", {}, "org.freedesktop.DBus.Peer");
    ASSERT_TRUE(runUntil([&] { return ping.isFinished(); }));
    call("Activate", {QVariantMap()});
    call("Open", {QStringList{"file:///x"}, QVariantMap()});
    const auto last = call("ActivateAction", {"settings", QVariantList(), QVariantMap()});
    EXPECT_TRUE(runUntil([&] { return reopened == 3 && last.isFinished(); }));
    EXPECT_FALSE(last.isError());
    const auto unknown = call("Quit", {});
    EXPECT_TRUE(runUntil([&] { return unknown.isFinished(); }));
    EXPECT_TRUE(unknown.isError());
    EXPECT_EQ(reopened, 3);
}

TEST_F(ProgramPresenceTests, ActivationThatStartedUsIsNoReopening) {
    // Stands for our own start: the bus waits until somebody has claimed the name.
    std::ofstream(bus.services / "app.ambrel.Ambrel.service")
        << "[D-BUS Service]\nName=app.ambrel.Ambrel\nExec=/bin/sleep 20\n";
    const auto reload = QDBusMessage::createMethodCall("org.freedesktop.DBus", "/org/freedesktop/DBus",
                                                       "org.freedesktop.DBus", "ReloadConfig");
    caller.connection(Seconds(10))->call(reload);
    const auto launch = call("Activate", {QVariantMap()});
    // The bus answers in order: after this it has the activation.
    caller.connection()->call(reload);

    ProgramPresence presence(sessionBus);
    int reopened = 0;
    const auto subscription = presence.didReopen.subscribe([&] { ++reopened; });
    ASSERT_TRUE(runUntil([&] { return launch.isFinished(); }));
    EXPECT_FALSE(launch.isError());
    EXPECT_EQ(reopened, 0);
    call("Activate", {QVariantMap()});
    EXPECT_TRUE(runUntil([&] { return reopened == 1; }));
}

TEST_F(ProgramPresenceTests, FirstSignalEndsTheLoopAndTheSecondTheProcess) {
    ProgramPresence presence(sessionBus);
    {
        const LinuxApplicationHost host(presence);
        for (const int number : {SIGTERM, SIGINT}) {
            raise(number);
            EXPECT_EQ(QCoreApplication::exec(), 0);
            struct sigaction action {};
            sigaction(number, nullptr, &action);
            EXPECT_EQ(action.sa_handler, SIG_DFL);
        }
    }
}

} // namespace

} // namespace ambrel
