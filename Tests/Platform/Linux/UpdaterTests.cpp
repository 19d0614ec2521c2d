#include "Platform/Linux/EventLoop.h"
#include "Platform/Linux/LinkOpener.h"
#include "Platform/Linux/LinuxMainQueue.h"
#include "Platform/Linux/LinuxUpdater.h"
#include "Platform/Linux/PrivateBus.h"
#include "Platform/Linux/SessionBus.h"
#include "Platform/Simulated/SimulatedEnvironment.h"
#include "Platform/Simulated/SimulatedUserDefaults.h"
#include "Platform/Simulated/VirtualMainQueue.h"
#include "Support/LoggedTest.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusVirtualObject>
#include <gmock/gmock.h>

namespace ambrel {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// A package service with the updates of a test's choice.
class PlayedPackageKit final : public QDBusVirtualObject {
public:
    PlayedPackageKit() : bus_(QDBusConnection::connectToBus(qEnvironmentVariable("DBUS_SYSTEM_BUS_ADDRESS"), name())) {
        bus_.registerVirtualObject("/", this, QDBusConnection::SubPath);
        bus_.registerService("org.freedesktop.PackageKit");
    }
    PlayedPackageKit(const PlayedPackageKit&) = delete;
    PlayedPackageKit& operator=(const PlayedPackageKit&) = delete;
    ~PlayedPackageKit() override { QDBusConnection::disconnectFromBus(name()); }

    [[nodiscard]] QString introspect(const QString&) const override { return {}; }
    bool handleMessage(const QDBusMessage& message, const QDBusConnection&) override {
        asked.push_back(message.member().toStdString());
        if (message.member() == refused) {
            return bus_.send(message.createErrorReply("org.freedesktop.PackageKit.Denied", "not today"));
        }
        if (message.member() == "CreateTransaction") {
            return bus_.send(message.createReply(QVariant::fromValue(QDBusObjectPath("/17_abc"))));
        }
        bus_.send(message.createReply());
        if (message.member() == "GetUpdates") {
            tell();
        }
        return true;
    }

    struct Update {
        uint kind;
        const char* identifier;
    };
    std::vector<Update> updates;
    const char* error = nullptr;
    const char* last = "Finished";
    QString refused;
    std::vector<std::string> asked;

private:
    static QString name() { return QStringLiteral("package-kit"); }
    void emitSignal(const char* path, const char* member, const QVariantList& arguments) {
        auto message = QDBusMessage::createSignal(path, "org.freedesktop.PackageKit.Transaction", member);
        message.setArguments(arguments);
        bus_.send(message);
    }
    void tell() {
        // Somebody else's, at the same time.
        emitSignal("/18_def", "Package", {5U, "ambrel;9.9;amd64;debian", ""});
        emitSignal("/18_def", "Finished", {1U, 10U});
        for (const auto& update : updates) {
            emitSignal("/17_abc", "Package", {update.kind, update.identifier, "A summary"});
        }
        if (error != nullptr) {
            emitSignal("/17_abc", "ErrorCode", {1U, error});
        }
        emitSignal("/17_abc", last, last == std::string("Finished") ? QVariantList{1U, 10U} : QVariantList());
    }

    QDBusConnection bus_;
};

class UpdaterTests : public LoggedTest {
protected:
    UpdaterTests() { setenv("DBUS_SYSTEM_BUS_ADDRESS", std::getenv("DBUS_SESSION_BUS_ADDRESS"), 1); }
    ~UpdaterTests() override { unsetenv("DBUS_SYSTEM_BUS_ADDRESS"); }

    PrivateBus privateBus;
};

class PackageQuestionTests : public UpdaterTests {
protected:
    std::string ask() {
        std::optional<PackageQuestion::Answer> answer;
        std::optional<PackageQuestion> question;
        question.emplace(queue, "ambrel", [&](const PackageQuestion::Answer& given) {
            answer = given;
            question.reset();
        });
        EXPECT_TRUE(runUntil([&] { return answer.has_value(); }));
        return answer->failure ? "failed: " + *answer->failure : answer->offered.value_or("nothing");
    }

    LinuxMainQueue queue;
};

TEST_F(PackageQuestionTests, TheServiceOffersWhatIsNewerAndCanBeInstalled) {
    PlayedPackageKit service;
    EXPECT_EQ(ask(), "nothing");
    EXPECT_THAT(service.asked, ElementsAre("CreateTransaction", "SetHints", "GetUpdates"));
    service.updates = {{5, "ambrel-data;3.0;all;debian"}, {5, "ambrel;1.2-3;amd64;debian"}, {8, "zsh;5;amd64;debian"}};
    EXPECT_EQ(ask(), "1.2-3");
    service.updates = {{0x50005, "ambrel;1.3;amd64;debian"}};
    EXPECT_EQ(ask(), "1.3");
    service.updates = {{9, "ambrel;1.2-3;amd64;debian"},
                       {0x50009, "ambrel;1.3;amd64;debian"},
                       {5, "ambrel"},
                       {5, "ambrel;;;"},
                       {5, ""}};
    EXPECT_EQ(ask(), "nothing") << "blocked, or no identifier";
}

TEST_F(PackageQuestionTests, AQuestionThatFailsSaysWhy) {
    EXPECT_THAT(ask(), ::testing::StartsWith("failed: ")) << "nobody is there";
    PlayedPackageKit service;
    service.updates = {{5, "ambrel;1.2-3;amd64;debian"}};
    service.error = "no network";
    EXPECT_EQ(ask(), "failed: no network");
    service.error = nullptr;
    service.last = "Destroy";
    EXPECT_EQ(ask(), "failed: the service gave up");
    for (const char* method : {"CreateTransaction", "GetUpdates"}) {
        service.refused = method;
        EXPECT_EQ(ask(), "failed: not today");
    }
    setenv("DBUS_SYSTEM_BUS_ADDRESS", "unix:path=/nowhere", 1);
    EXPECT_THAT(ask(), ::testing::StartsWith("failed: "));
}

/// A day passes in a moment, except on the bus.
class LinuxUpdaterTests : public UpdaterTests {
protected:
    void start() {
        updater.emplace(LinuxUpdater::Neighbours{queue, defaults, queue.wallClock(), links});
        offers_ = updater->updateOffered.subscribe([this](const std::string& version) { offered.push_back(version); });
        updater->start();
    }
    /// Lets the bus speak until `holds`.
    [[nodiscard]] bool await(const std::function<bool()>& holds) {
        return runUntil([&] {
            queue.settle();
            return holds();
        });
    }
    [[nodiscard]] bool awaitQuestions(std::size_t count) {
        return await([&] { return service->asked.size() == 3 * count && offered.size() == count; });
    }
    void pass(double hours) { queue.advance(Seconds(hours * 3600)); }

    simulated::VirtualMainQueue queue;
    simulated::SimulatedUserDefaults defaults;
    simulated::SimulatedEnvironment environment;
    SessionBus bus;
    LinkOpener links{environment, bus};
    std::optional<PlayedPackageKit> service;
    std::optional<LinuxUpdater> updater;
    std::vector<std::string> offered;

private:
    Subscription offers_;
};

TEST_F(LinuxUpdaterTests, AsksOnceADayAcrossRunsAndNotInTheMiddleOfALogin) {
    service.emplace();
    service->updates = {{5, "ambrel;2.0;amd64;debian"}};
    start();
    ASSERT_TRUE(await([&] { return updater->isAvailable(); }));
    pass(0.01);
    EXPECT_THAT(service->asked, IsEmpty());
    pass(0.1);
    ASSERT_TRUE(awaitQuestions(1));
    EXPECT_EQ(offered.back(), "2.0");
    pass(23);
    start(); // a new run
    ASSERT_TRUE(await([&] { return updater->isAvailable(); }));
    pass(0.9);
    EXPECT_EQ(service->asked.size(), 3U);
    pass(0.05);
    ASSERT_TRUE(awaitQuestions(2));
    pass(24.1);
    EXPECT_TRUE(awaitQuestions(3));
}

TEST_F(LinuxUpdaterTests, AsksNothingWhereItMayNot) {
    service.emplace();
    start();
    EXPECT_TRUE(updater->automaticallyChecksForUpdates());
    updater->setAutomaticallyChecksForUpdates(false);
    start();
    EXPECT_FALSE(updater->automaticallyChecksForUpdates()) << "forgotten by the next run";
    ASSERT_TRUE(await([&] { return updater->isAvailable(); }));
    pass(100);
    EXPECT_THAT(service->asked, IsEmpty());
}

TEST_F(LinuxUpdaterTests, WithoutAServiceItSaysSoOnce) {
    start();
    EXPECT_TRUE(await([&] { return log.contains("no package service is there to be asked for updates"); }));
    EXPECT_FALSE(updater->isAvailable());
    pass(100);
    updater->checkForUpdates();
    updater->checkForUpdates();
    EXPECT_EQ(log.count("no software centre is there to show updates in"), 1U);
    EXPECT_EQ(log.count("no package service is there"), 1U);
}

TEST_F(LinuxUpdaterTests, AServiceThatCouldBeStartedCountsAsThere) {
    writeText(privateBus.services / "org.freedesktop.PackageKit.service",
              "[D-BUS Service]\nName=org.freedesktop.PackageKit\nExec=/bin/false\n");
    const auto connection = bus.connection(Seconds(10));
    ASSERT_TRUE(connection);
    // A file that is as old as the bus itself, to the second, is not noticed by itself.
    connection->call(QDBusMessage::createMethodCall("org.freedesktop.DBus", "/org/freedesktop/DBus",
                                                    "org.freedesktop.DBus", "ReloadConfig"));
    start();
    EXPECT_TRUE(await([&] { return updater->isAvailable() || log.contains("no package service"); }));
    EXPECT_TRUE(updater->isAvailable());
    pass(0.1);
    EXPECT_TRUE(await([&] { return log.contains("the package service could not be asked for updates: "); }));
}

} // namespace
} // namespace ambrel
