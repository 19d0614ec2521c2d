#include "Scenarios/EngineScenario.h"

#include <memory>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace ambrel {
namespace {

using simulated::CannotBeAsked;
using simulated::Quits;
using simulated::Refuses;
using simulated::ShowsSaveDialog;
using simulated::SimulatedApplication;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class Notifier : public EngineScenario {
protected:
    /// Closes the only window of an application, and stops right after Ambrel's request to quit.
    SimulatedApplication& requestQuit(simulated::TerminateAnswer answer = Quits{},
                                      const std::string& bundleID = "org.example.Editor") {
        auto& app = launchWithWindow(bundleID);
        app.terminateAnswer = answer;
        app.closeWindows();
        desktop.advance(1);
        EXPECT_TRUE(log.contains("quitting " + bundleID));
        return app;
    }
    [[nodiscard]] auto& center() { return desktop.notificationCenter(); }
    [[nodiscard]] auto& shown() { return center().shown; }
    /// The texts of category "notify" since the last call.
    [[nodiscard]] std::vector<std::string> notifyLines() {
        auto lines = log.texts("notify");
        log.clear();
        return lines;
    }
    /// An application that Ambrel asked to quit has ended.
    void tell(TerminationAudit::Path path, const std::optional<std::filesystem::path>& url = std::nullopt) {
        house().notifier.notifyQuit("Editor", url, 4711, path);
        desktop.settle();
    }
};

TEST_F(Notifier, TellsOfAnApplicationOnceItIsGoneAndReopensIt) {
    start();
    const auto url = requestQuit(Quits{Seconds(0.6)}).bundleURL();
    desktop.advance(0.7);
    EXPECT_THAT(shown(), IsEmpty());
    desktop.advance(0.05);
    ASSERT_EQ(shown().size(), 1U);
    EXPECT_EQ(shown()[0].title, "Ambrel Quit Editor");
    EXPECT_EQ(shown()[0].body, "Its last window closed. Click Reopen if that wasn't what you wanted.");
    EXPECT_THAT(notifyLines(), ElementsAre("notification authorization: granted (provisional)",
                                           "posting quit notification for Editor (last-window)"));

    center().respond(shown()[0], "AMBREL_REOPEN");
    desktop.advance(1);
    EXPECT_THAT(desktop.workspace().opened, ElementsAre(*url));
    EXPECT_THAT(notifyLines(), ElementsAre("Reopen tapped — relaunching Editor.desktop"));

    // It is watched like any other.
    auto& reopened = *desktop.workspace().applications().back();
    reopened.openWindow();
    desktop.advance(1);
    reopened.closeWindows();
    desktop.advance(2);
    EXPECT_THAT(decisions(),
                ElementsAre("last-window terminated Editor windows=0", "last-window terminated Editor windows=0"));
    ASSERT_EQ(shown().size(), 2U);
    EXPECT_NE(shown()[0].identifier, shown()[1].identifier);
}

TEST_F(Notifier, SaysNothingOfAnApplicationThatStays) {
    start();
    int count = 0;
    for (const simulated::TerminateAnswer& answer :
         {simulated::TerminateAnswer(Refuses{}), simulated::TerminateAnswer(ShowsSaveDialog{}),
          simulated::TerminateAnswer(Quits{Seconds(5.1)})}) {
        auto& app = requestQuit(answer, "org.example.App" + std::to_string(++count));
        log.clear();
        desktop.advance(4.99);
        EXPECT_THAT(notifyLines(), IsEmpty());
        desktop.advance(60);
        EXPECT_THAT(notifyLines(),
                    ElementsAre(*app.localizedName() + " (pid " + std::to_string(app.processIdentifier()) +
                                ") still running 5s after terminate — suppressing quit notification"));
    }
    EXPECT_THAT(shown(), IsEmpty());
}

TEST_F(Notifier, AProcessIdTakenOverAtOnceCountsAsAlive) {
    start();
    auto& app = requestQuit(Quits{Seconds(0.1)});
    desktop.advance(0.15);
    desktop.launch("org.example.Stranger", "Stranger", {.pid = app.processIdentifier()});
    desktop.advance(10);
    EXPECT_THAT(shown(), IsEmpty());
    EXPECT_TRUE(log.contains("Editor (pid "));
}

TEST_F(Notifier, OnlyReopenAndAClickOnItReopen) {
    start();
    struct Case {
        const char* action;
        std::optional<std::filesystem::path> url;
        bool opens;
    };
    for (const auto& [action, url, opens] :
         std::vector<Case>{{"AMBREL_REOPEN", "/apps/Editor.desktop", true},
                           {NotificationResponse::defaultAction, "/apps/Editor.desktop", true},
                           {"dismiss", "/apps/Editor.desktop", false},
                           {"", "/apps/Editor.desktop", false},
                           {"AMBREL_REOPEN", std::nullopt, false}}) {
        tell(TerminationAudit::Path::idle, url);
        log.clear();
        desktop.workspace().opened.clear();
        center().respond(shown().back(), action);
        desktop.settle();
        EXPECT_EQ(desktop.workspace().opened.size(), opens ? 1U : 0U) << action;
        EXPECT_EQ(notifyLines().size(), opens ? 1U : 0U) << action;
    }
}

TEST_F(Notifier, TurnedOffOrInABareBinaryItDoesNotEvenLook) {
    start();
    house().settings.notifyOnQuit.set(false);
    requestQuit(Refuses{});
    desktop.advance(60);
    house().settings.notifyOnQuit.set(true);
    desktop.bundle().url = home.path();
    house().notifier.configure();
    requestQuit(Quits{}, "org.example.Player");
    desktop.advance(60);
    EXPECT_THAT(notifyLines(), IsEmpty());
    EXPECT_EQ(center().authorizationRequests, 0);
    // Nothing was settled by that.
    desktop.bundle().url = home.path() / "Ambrel.app";
    house().notifier.configure();
    EXPECT_EQ(center().authorizationRequests, 1);
}

TEST_F(Notifier, FailuresAreLoggedAndRefusalsAreNone) {
    start();
    center().granted = false;
    tell(TerminationAudit::Path::idle);
    EXPECT_THAT(notifyLines(),
                ElementsAre("notification authorization: denied", "posting quit notification for Editor (idle)"));
    center().failure = "no daemon";
    log.expectError("notification add failed: no daemon");
    tell(TerminationAudit::Path::idle);

    QuitNotifier other(desktop, house().settings);
    log.expectError("notification authorization failed: no daemon");
    other.configure();
    desktop.settle();
}

TEST_F(Notifier, NothingIsPostedAfterItsEnd) {
    start();
    auto other = std::make_unique<QuitNotifier>(desktop, house().settings);
    auto& app = desktop.launch("org.example.Editor", "Editor");
    auto& refusing = desktop.launch("org.example.Player", "Player");
    for (const auto pid : {app.processIdentifier(), refusing.processIdentifier()}) {
        other->notifyQuit("Name", std::nullopt, pid, TerminationAudit::Path::idle);
    }
    desktop.advance(1);
    log.clear();
    other.reset();
    app.crash();
    desktop.advance(60);
    EXPECT_THAT(notifyLines(), IsEmpty());
    EXPECT_THAT(shown(), IsEmpty());
}

} // namespace
} // namespace ambrel
