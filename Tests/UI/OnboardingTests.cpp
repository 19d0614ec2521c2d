#include "UI/Onboarding/Onboarding.h"
#include "UI/ViewTest.h"

#include <QTest>
#include <gmock/gmock.h>

namespace ambrel {
namespace {

class OnboardingWindow : public ViewTest {
protected:
    void present(bool trusted) {
        desktop.windowList().setReadable(trusted);
        windows().presentOnboarding([this] { ++finished; });
    }
    [[nodiscard]] bool isCompleted() { return Onboarding::isCompleted(desktop.userDefaults()); }

    int finished = 0;
};

TEST_F(OnboardingWindow, LeadsFromTheWelcomeOverThePermissionToTheDemo) {
    present(false);
    EXPECT_TRUE(shows("Needs Accessibility access"));
    click("Get Started");
    EXPECT_TRUE(eventually([this] { return shows("Waiting for permission…") && shows("Open System Settings"); }));
    click("Open System Settings");
    EXPECT_EQ(desktop.workspace().links.size(), 1U);
    desktop.windowList().setReadable(true);
    desktop.advance(1);
    EXPECT_TRUE(eventually([this] { return shows("You're set") && !shows("Welcome to Ambrel"); }));
    press(Qt::Key_Return);
    EXPECT_EQ(finished, 1);
    EXPECT_TRUE(isCompleted());
    EXPECT_TRUE(eventually([this] { return window() == nullptr; }));
}

TEST_F(OnboardingWindow, TheDemoFollowsTheTextEditor) {
    present(true);
    EXPECT_TRUE(shows("Waiting for TextEdit…"));
    EXPECT_TRUE(shows("Open TextEdit"));
    auto& editor = desktop.launch("com.apple.TextEdit", "TextEdit");
    desktop.settle();
    EXPECT_TRUE(shows("TextEdit is open"));
    EXPECT_FALSE(shows("Open TextEdit"));
    editor.crash();
    desktop.settle();
    EXPECT_TRUE(shows("Ambrel quit TextEdit for you."));
    EXPECT_TRUE(shows("Ambrel quit TextEdit for you. Setup is complete."));
    EXPECT_FALSE(shows("Open TextEdit"));
    EXPECT_FALSE(isCompleted());
}

TEST_F(OnboardingWindow, EveryWayOutCompletesItOnce) {
    const auto escape = [this] {
        press(Qt::Key_Escape);
    };
    const auto close = [this] {
        window()->close();
    };
    const std::vector<std::function<void()>> ways{[this] { click("Set Up Later"); }, escape, close};
    for (const auto& leave : ways) {
        finished = 0;
        present(false);
        ASSERT_TRUE(shows("Welcome to Ambrel"));
        EXPECT_EQ(desktop.application().policy, ActivationPolicy::regular);
        leave();
        EXPECT_EQ(finished, 1);
        EXPECT_TRUE(isCompleted());
        EXPECT_EQ(desktop.application().policy, ActivationPolicy::accessory);
        EXPECT_TRUE(eventually([this] { return window() == nullptr; }));
        EXPECT_EQ(finished, 1);
    }
    EXPECT_EQ(log.count("onboarding closed by user — treating as Set Up Later"), 1U);
    EXPECT_EQ(log.count("onboarding dismissed"), ways.size());
}

TEST_F(OnboardingWindow, GivesNothingAwayAfterItHasBeenLeft) {
    present(false);
    click("Get Started");
    press(Qt::Key_Escape);
    desktop.advance(10);
    EXPECT_TRUE(desktop.workspace().links.empty()) << "the settings came up without the window";
}

} // namespace
} // namespace ambrel
