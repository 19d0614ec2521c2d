#include "Platform/Linux/EventLoop.h"
#include "Platform/Linux/LinuxMainQueue.h"
#include "Platform/Linux/LinuxNotificationCenter.h"
#include "Platform/Linux/PrivateBus.h"
#include "Platform/Linux/SessionBus.h"

#include <fstream>
#include <thread>

#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QThread>
#include <gmock/gmock.h>

namespace ambrel {

namespace {

using Texts = std::vector<std::string>;
const QString daemonName = QStringLiteral("org.freedesktop.Notifications");
const QString daemonPath = QStringLiteral("/org/freedesktop/Notifications");

/// A notification daemon with a connection of its own, which remembers what it shows. Its first id is 1.
class PlayedDaemon final : public QDBusVirtualObject {
public:
    explicit PlayedDaemon(const Texts& capabilities) : bus_(*session_.connection(Seconds(10))) {
        for (const auto& each : capabilities) {
            capabilities_ << QString::fromStdString(each);
        }
        bus_.registerVirtualObject(daemonPath, this);
        bus_.registerService(daemonName);
    }

    [[nodiscard]] QString introspect(const QString&) const override { return {}; }
    bool handleMessage(const QDBusMessage& message, const QDBusConnection& bus) override {
        if (message.member() == "GetCapabilities") {
            return bus.send(message.createReply(capabilities_));
        }
        if (message.member() == "Notify") {
            return message.signature() == "susssasa{sv}i" && bus.send(message.createReply(show(message.arguments())));
        }
        return bus.send(message.createReply());
    }
    void say(const QString& signal, unsigned id, const QVariant& detail) {
        auto message = QDBusMessage::createSignal(daemonPath, daemonName, signal);
        message << id << detail;
        EXPECT_TRUE(bus_.send(message));
    }

    std::string shown; ///< "ID|TITLE|BODY|ACTIONS|ENTRY" of the latest

private:
    unsigned show(const QVariantList& arguments) {
        const auto hints = qdbus_cast<QVariantMap>(arguments[6]);
        const QStringList line{QString::number(++lastId_), arguments[3].toString(), arguments[4].toString(),
                               arguments[5].toStringList().join(','), hints["desktop-entry"].toString()};
        shown = line.join('|').toStdString();
        return lastId_;
    }

    SessionBus session_;
    QDBusConnection bus_;
    QStringList capabilities_;
    unsigned lastId_ = 0;
};

class NotificationCenterTests : public testing::Test {
protected:
    NotificationCenterTests() {
        EXPECT_TRUE(sessionBus.connection(Seconds(10)));
        EXPECT_TRUE(user.connection(Seconds(10)));
        center.setCategories({{"QUIT", {{"REOPEN", "Reopen"}, {"RULE", "Keep"}}}});
        center.setDelegate([this](const NotificationResponse& response) {
            EXPECT_EQ(QThread::currentThread(), qApp->thread());
            responses.push_back(response.actionIdentifier + " " + response.userInfo.at("app"));
        });
    }

    void startDaemon(const Texts& capabilities = {"actions", "body", "body-markup"}) {
        daemon.reset();
        daemon.emplace(capabilities);
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

    void invoke(unsigned id, const char* action) { daemon->say("ActionInvoked", id, QString(action)); }
    void close(unsigned id) { daemon->say("NotificationClosed", id, 2U); }
    /// Of the bus, which has seen to everything that `user` sent before.
    void call(const char* method) {
        EXPECT_EQ(user.connection()
                      ->call(QDBusMessage::createMethodCall("org.freedesktop.DBus", "/org/freedesktop/DBus",
                                                            "org.freedesktop.DBus", method))
                      .type(),
                  QDBusMessage::ReplyMessage);
    }
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
    std::optional<PlayedDaemon> daemon;
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
        EXPECT_EQ(daemon->shown, line);
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
    call("GetId");
    daemon->say("ActionInvoked", 0, 7);
    daemon->say("NotificationReplied", 1, QString("text"));
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

TEST_F(NotificationCenterTests, OneThatDoesNotStartIsAFailure) {
    std::ofstream(bus.services / "daemon.service")
        << "[D-BUS Service]\nName=org.freedesktop.Notifications\nExec=/bin/false\n";
    call("ReloadConfig");
    EXPECT_FALSE(authorization().first);
    EXPECT_NE(authorization().second, std::nullopt) << "there is one, but it doesn't start";
    EXPECT_NE(add(request("Editor")), std::nullopt);
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
