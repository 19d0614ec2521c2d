#include "Contract/ContractTest.h"
#include "Platform/BackgroundQueue.h"
#include "Platform/HotKeyCenter.h"
#include "Platform/LoginItem.h"
#include "Platform/NotificationCenter.h"
#include "Platform/Session.h"

#include <atomic>

namespace ambrel {
namespace {

/// What the desktop does for the program beyond showing it applications.
class DesktopServicesContract : public ContractTest {
protected:
    [[nodiscard]] bool awaitText(const std::string& text, const std::string& expected) {
        return driver->waitUntil([&] { return text.size() >= expected.size(); }) && text == expected;
    }
    /// How the request was answered, which is never within the call.
    std::string add(const std::string& app) {
        std::optional<std::string> answer;
        center.add({.identifier = app,
                    .title = "Quit " + app,
                    .body = "",
                    .categoryIdentifier = "QUIT",
                    .userInfo = {{"app", app}}},
                   [&](const NotificationFailure& failure) { answer = failure ? "failed" : "shown"; });
        EXPECT_FALSE(answer);
        EXPECT_TRUE(driver->waitUntil([&] { return answer.has_value(); }));
        return answer.value_or("");
    }
    std::string authorization() {
        std::string answer;
        center.requestAuthorization([&](bool granted, const NotificationFailure& failure) {
            answer = failure ? "failed" : granted ? "granted" : "denied";
        });
        EXPECT_TRUE(driver->waitUntil([&] { return !answer.empty(); }));
        return answer;
    }

    NotificationCenter& center = platform.notificationCenter();
};

TEST_F(DesktopServicesContract, TheSessionTellsEachChangeOnce) {
    auto& session = platform.session();
    std::string heard;
    const Subscription subscriptions[] = {session.screenIsLocked.subscribe([&] { heard += 'L'; }),
                                          session.screenIsUnlocked.subscribe([&] { heard += 'u'; }),
                                          session.screensDidSleep.subscribe([&] { heard += 'S'; }),
                                          session.screensDidWake.subscribe([&] { heard += 'w'; })};
    session.start();
    EXPECT_EQ(heard, "") << "what holds at the start is no event";
    const auto isLocked = [&] {
        const auto facts = session.current();
        return facts && facts->isScreenLocked.value_or(false);
    };
    EXPECT_FALSE(isLocked());
    driver->lockScreen(true);
    EXPECT_TRUE(awaitText(heard, "L")) << heard;
    EXPECT_TRUE(isLocked());
    driver->darkenDisplays(true);
    EXPECT_TRUE(awaitText(heard, "LS")) << heard;
    driver->darkenDisplays(false);
    EXPECT_TRUE(awaitText(heard, "LSw")) << heard;
    EXPECT_TRUE(isLocked());
    driver->lockScreen(false);
    EXPECT_TRUE(awaitText(heard, "LSwu")) << heard;
    EXPECT_FALSE(isLocked());
}

TEST_F(DesktopServicesContract, AHotKeyIsHeardWhileItIsRegistered) {
    auto& keys = platform.hotKeyCenter();
    std::string heard;
    auto first = keys.registerHotKey({12, 0xB00}, [&] { heard += 'a'; });
    ASSERT_EQ(first.status, 0);
    driver->pressHotKey();
    EXPECT_TRUE(awaitText(heard, "a"));
    first.registration.reset();
    driver->pressHotKey();
    driver->settle();
    const auto second = keys.registerHotKey({12, 0xB00}, [&] { heard += 'b'; });
    ASSERT_EQ(second.status, 0) << "what was given back can be had again";
    driver->pressHotKey();
    EXPECT_TRUE(awaitText(heard, "ab")) << heard;
}

TEST_F(DesktopServicesContract, NotificationsComeBackWithWhatTheUserDid) {
    std::string heard;
    center.setCategories({{"QUIT", {{"REOPEN", "Reopen"}}}});
    center.setDelegate([&](const NotificationResponse& response) {
        heard += response.actionIdentifier + " " + response.userInfo.at("app") + ".";
    });
    EXPECT_NE(authorization(), "granted");
    EXPECT_EQ(add("Nobody"), "failed");

    driver->startNotifications();
    EXPECT_EQ(authorization(), "granted");
    EXPECT_EQ(add("Editor"), "shown");
    driver->useNotification("REOPEN");
    EXPECT_TRUE(awaitText(heard, "REOPEN Editor.")) << heard;
    EXPECT_EQ(add("Player"), "shown");
    driver->useNotification(NotificationResponse::defaultAction);
    EXPECT_TRUE(awaitText(heard, "REOPEN Editor.default Player.")) << heard;
}

TEST_F(DesktopServicesContract, ABackgroundQueueAsksUntilItHoldsAndNoOftenerThanTold) {
    constexpr Seconds interval(0.02);
    struct Case {
        int times;
        int holdsAt;
        bool expected;
        int asked;
        int waits; ///< one after the last question too
    };
    for (const auto& [times, holdsAt, expected, asked, waits] :
         {Case{5, 1, true, 1, 0}, Case{5, 3, true, 3, 2}, Case{3, 4, false, 3, 3}, Case{0, 1, false, 0, 0}}) {
        std::atomic<int> count = 0;
        std::atomic<int> answer = -1;
        const auto begin = platform.wallClock().now();
        platform.backgroundQueue().poll(
            times, interval, [&, at = holdsAt] { return ++count == at; }, [&](bool holds) { answer = holds ? 1 : 0; });
        EXPECT_TRUE(driver->waitUntil([&] { return answer >= 0; }));
        EXPECT_EQ(answer == 1, expected);
        EXPECT_EQ(count, asked);
        EXPECT_GE(platform.wallClock().now() - begin, interval * waits - Seconds(1e-4));
    }
}

TEST_F(DesktopServicesContract, ALoginItemIsWhatItWasMade) {
    auto& item = platform.loginItem();
    EXPECT_EQ(item.unregisterItem(), std::nullopt);
    EXPECT_EQ(item.status(), LoginItemStatus::notRegistered);
    EXPECT_EQ(item.followProgram(), std::nullopt);
    EXPECT_EQ(item.status(), LoginItemStatus::notRegistered) << "registered by nobody's wish";
    for (int times = 0; times < 2; ++times) {
        EXPECT_EQ(item.registerItem(), std::nullopt);
        EXPECT_EQ(item.status(), LoginItemStatus::enabled);
    }
    EXPECT_EQ(item.unregisterItem(), std::nullopt);
    EXPECT_EQ(item.status(), LoginItemStatus::notRegistered);
}

} // namespace
} // namespace ambrel
