#include "Platform/Linux/EventLoop.h"
#include "Platform/Linux/LinuxMainQueue.h"
#include "Platform/Linux/LinuxNotificationCenter.h"
#include "Platform/Linux/PrivateBus.h"
#include "Platform/Linux/SessionBus.h"

#include <fstream>
#include <thread>

#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QElapsedTimer>
#include <QThread>
#include <gmock/gmock.h>

namespace ambrel {

namespace {

using Texts = std::vector<std::string>;
const QString daemonName = QStringLiteral("org.freedesktop.Notifications");
const QString daemonPath = QStringLiteral("/org/freedesktop/Notifications");

class NotificationCenterTests : public testing::Test {
protected:
    NotificationCenterTests() {
        EXPECT_TRUE(sessionBus.connection(Seconds(10)));
        EXPECT_TRUE(user.connection(Seconds(10)));
        listenWith(center);
    }

    void listenWith(LinuxNotificationCenter& other) {
        other.setCategories({{"QUIT", {{"REOPEN", "Reopen"}, {"RULE", "Keep"}}}});
        other.setDelegate([this](const NotificationResponse& response) {
            EXPECT_EQ(QThread::currentThread(), qApp->thread());
            responses.push_back(response.actionIdentifier + " " + response.userInfo.at("app"));
        });
    }

    void startDaemon(Texts capabilities = {"actions", "body", "body-markup"}) {
        daemon.reset();
        capabilities.insert(capabilities.begin(), NOTIFICATION_DAEMON);
        daemon = std::make_unique<ChildProcess>(std::move(capabilities));
        ASSERT_EQ(daemon->readLine(), "ready");
    }

    static NotificationRequest request(const std::string& app, const std::string& category = "QUIT") {
        return {.identifier = app,
                .title = "Quit " + app,
                .body = "Why <not> & \"how\"",
                .categoryIdentifier = category,
                .userInfo = {{"app", app}}};
    }

    NotificationFailure add(const NotificationRequest& notification) {
        std::optional<NotificationFailure> answer;
        center.add(notification, [&](const NotificationFailure& failure) { answer = failure; });
        EXPECT_TRUE(runUntil([&] { return answer.has_value(); }));
        return answer.value_or("no answer");
    }

    std::pair<bool, NotificationFailure> authorization() {
        std::optional<std::pair<bool, NotificationFailure>> answer;
        center.requestAuthorization([&](bool granted, const NotificationFailure& failure) {
            answer = {granted, failure};
        });
        EXPECT_TRUE(runUntil([&] { return answer.has_value(); }));
        return answer.value_or(std::pair(false, "no answer"));
    }

    /// The daemon sends one of its signals, after everything that `user` sent before.
    void daemonSends(const QString& signal, unsigned id, const QVariant& detail) {
        auto call = QDBusMessage::createMethodCall(daemonName, daemonPath, daemonName, "Emit");
        call << signal << id << detail;
        EXPECT_EQ(user.connection()->call(call).type(), QDBusMessage::ReplyMessage);
    }
    void invoke(unsigned id, const char* action) { daemonSends("ActionInvoked", id, QString(action)); }
    void close(unsigned id) { daemonSends("NotificationClosed", id, 2U); }

    /// All responses up to the one of a last notification, which comes in its turn.
    Texts responsesBefore(const std::string& last, unsigned itsId) {
        EXPECT_EQ(add(request(last)), std::nullopt);
        invoke(itsId, "end");
        EXPECT_TRUE(runUntil([&] { return !responses.empty() && responses.back() == "end " + last; }));
        responses.pop_back();
        return std::exchange(responses, {});
    }

    PrivateBus bus;
    SessionBus sessionBus;
    SessionBus user; ///< somebody else on the bus
    LinuxMainQueue queue;
    LinuxNotificationCenter center{sessionBus, queue, Seconds(5)};
    std::unique_ptr<ChildProcess> daemon;
    Texts responses;
};

TEST_F(NotificationCenterTests, ShowsWhatTheDaemonCanShow) {
    const std::string escaped = "Why &lt;not&gt; &amp; &quot;how&quot;";
    const std::string plain = "Why <not> & \"how\"";
    const std::string actions = "default,Reopen,REOPEN,Reopen,RULE,Keep";
    const std::string entry = "|app.ambrel.Ambrel";
    const std::vector<std::tuple<Texts, std::string, std::string>> cases{
        {{"actions", "body", "body-markup"}, "QUIT", "1|Quit Editor|" + escaped + "|" + actions + entry},
        {{"body-markup"}, "QUIT", "1|Quit Editor|" + escaped + "|" + entry},
        {{"actions"}, "QUIT", "1|Quit Editor|" + plain + "|" + actions + entry},
        {{"actions"}, "OTHER", "1|Quit Editor|" + plain + "|" + entry},
        {{}, "QUIT", "1|Quit Editor|" + plain + "|" + entry},
    };
    for (const auto& [capabilities, category, line] : cases) {
        startDaemon(capabilities);
        EXPECT_EQ(authorization(), std::pair(true, NotificationFailure()));
        EXPECT_EQ(add(request("Editor", category)), std::nullopt);
        EXPECT_EQ(daemon->readLine(), line);
    }
}

TEST_F(NotificationCenterTests, TellsOfActionsUntilTheNotificationIsClosed) {
    startDaemon();
    add(request("Editor"));
    add(request("Player"));
    invoke(2, "default");
    invoke(1, "REOPEN");
    close(1);
    close(1);
    invoke(1, "REOPEN");
    close(2);
    invoke(2, "REOPEN");
    invoke(77, "REOPEN");
    EXPECT_EQ(responsesBefore("Viewer", 3), (Texts{"default Player", "REOPEN Editor"}));
}

TEST_F(NotificationCenterTests, SignalsOfOthersAndOddOnesDontCount) {
    startDaemon();
    add(request("Editor"));
    for (const char* const name : {"ActionInvoked", "NotificationClosed"}) {
        auto signal = QDBusMessage::createSignal(daemonPath, daemonName, name);
        signal << 1U << QString("REOPEN");
        user.connection()->send(signal);
    }
    daemonSends("ActionInvoked", 0, 7);
    daemonSends("NotificationReplied", 1, QString("text"));
    invoke(1, "default");
    EXPECT_EQ(responsesBefore("Viewer", 2), Texts{"default Editor"});
}

TEST_F(NotificationCenterTests, RestartedDaemonKnowsNothingOfTheLastOnesNotifications) {
    startDaemon();
    add(request("Editor"));
    add(request("Player"));
    startDaemon();
    invoke(1, "REOPEN");
    EXPECT_EQ(responsesBefore("Viewer", 1), Texts{});
    invoke(2, "REOPEN");
    invoke(1, "REOPEN");
    EXPECT_EQ(responsesBefore("Writer", 2), Texts{"REOPEN Viewer"});
}

TEST_F(NotificationCenterTests, AbsentDaemonIsAFailureAndRefusesAuthorization) {
    EXPECT_EQ(authorization(), std::pair(false, NotificationFailure()));
    EXPECT_THAT(add(request("Editor")).value_or(""), testing::HasSubstr("org.freedesktop.Notifications"));
    startDaemon();
    EXPECT_EQ(add(request("Editor")), std::nullopt) << "it may come later";
    daemon.reset();
    EXPECT_NE(add(request("Editor")), std::nullopt);

    bus.daemon.signal(SIGKILL);
    bus.daemon.awaitEnd();
    EXPECT_NE(add(request("Editor")), std::nullopt);
    unsetenv("DBUS_SESSION_BUS_ADDRESS");
    SessionBus none;
    LinuxNotificationCenter lonely(none, queue);
    std::string answers;
    lonely.requestAuthorization([&](bool granted, const NotificationFailure& failure) {
        answers += granted || failure ? "granted" : "denied";
    });
    lonely.add(request("Editor"), [&](const NotificationFailure& failure) { answers += " " + failure.value_or(""); });
    EXPECT_TRUE(runUntil([&] { return answers.find(' ') != std::string::npos; }));
    EXPECT_EQ(answers, "denied there is no session bus");
}

TEST_F(NotificationCenterTests, IsStartedWhereTheBusCan) {
    const auto install = [&](const std::string& program) {
        std::ofstream(bus.services / "daemon.service")
            << "[D-BUS Service]\nName=org.freedesktop.Notifications\nExec=" << program << "\n";
        user.connection()->call(QDBusMessage::createMethodCall("org.freedesktop.DBus", "/org/freedesktop/DBus",
                                                               "org.freedesktop.DBus", "ReloadConfig"));
    };
    install("/bin/false");
    EXPECT_FALSE(authorization().first);
    EXPECT_NE(authorization().second, std::nullopt) << "there is one, but it doesn't start";
    EXPECT_NE(add(request("Editor")), std::nullopt);
    install(NOTIFICATION_DAEMON " actions");
    EXPECT_EQ(authorization(), std::pair(true, NotificationFailure()));
    EXPECT_EQ(responsesBefore("Editor", 1), Texts{});
    // It is the bus's child, and would outlive it.
    const auto pid = user.connection()->interface()->servicePid(daemonName);
    ASSERT_TRUE(pid.isValid());
    kill(static_cast<pid_t>(pid.value()), SIGKILL);
}

TEST_F(NotificationCenterTests, HungDaemonHoldsNobodyUpAndMayRecover) {
    startDaemon();
    LinuxNotificationCenter hasty(sessionBus, queue, Seconds(0.5));
    listenWith(hasty);
    daemon->signal(SIGSTOP);
    daemon->awaitStop();
    int failures = 0;
    hasty.requestAuthorization(
        [&](bool granted, const NotificationFailure& failure) { failures += !granted && failure.has_value() ? 1 : 0; });
    hasty.add(request("Editor"), [&](const NotificationFailure& failure) { failures += failure.has_value() ? 1 : 0; });
    QElapsedTimer turn;
    turn.start();
    QCoreApplication::processEvents();
    EXPECT_LT(turn.elapsed(), 450) << "a turn of the loop waited for the daemon";
    EXPECT_TRUE(runUntil([&] { return failures == 2; }));

    daemon->signal(SIGCONT);
    EXPECT_EQ(add(request("Player")), std::nullopt);
    EXPECT_EQ(daemon->readLine().value_or("").substr(0, 13), "1|Quit Player") << "given up means not shown later";
}

TEST_F(NotificationCenterTests, MayBeAskedOnAnyThreadAndEndInTheMiddle) {
    startDaemon();
    bool answered = false;
    bool told = false;
    auto brief = std::make_unique<LinuxNotificationCenter>(sessionBus, queue);
    brief->add(request("Editor"), [&](const NotificationFailure&) { told = true; });
    std::thread([&] {
        center.add(request("Player"), [&](const NotificationFailure& failure) {
            EXPECT_EQ(failure, std::nullopt);
            EXPECT_EQ(QThread::currentThread(), qApp->thread());
            answered = true;
        });
    }).join();
    // One turn: the question is on its way.
    QCoreApplication::processEvents(QEventLoop::ExcludeSocketNotifiers);
    brief.reset();
    EXPECT_TRUE(runUntil([&] { return answered; }));
    EXPECT_FALSE(told);
}

} // namespace

} // namespace ambrel
