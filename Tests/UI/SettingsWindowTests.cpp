#include "UI/ViewTest.h"

#include <QPointer>
#include <gmock/gmock.h>

#include <malloc.h>

namespace ambrel {
namespace {

/// Much less than any view takes, and more than what a cache may take for the last time.
constexpr std::size_t bytesOfAView = 20'000;

class SettingsWindow : public ViewTest {
protected:
    [[nodiscard]] bool hasSize(int width, int height) {
        return eventually([=, this] { return window()->size() == QSize(width, height); });
    }
    [[nodiscard]] std::vector<std::string> lines() { return log.texts("settings"); }
};

TEST_F(SettingsWindow, ChangesItsFormAboutItsCentreAndRemembersIt) {
    windows().showSettings();
    ASSERT_TRUE(eventually([this] { return lines().size() == 1; }));
    const auto centre = window()->geometry().center();
    EXPECT_EQ(window()->size(), QSize(480, 360));
    EXPECT_EQ(window()->maximumSize(), QSize(480, 360));

    click("Advanced…");
    ASSERT_TRUE(eventually([this] { return lines().size() == 2; }));
    EXPECT_EQ(window()->size(), QSize(720, 620));
    EXPECT_EQ(window()->minimumSize(), QSize(640, 540));
    EXPECT_LE((window()->geometry().center() - centre).manhattanLength(), 2);
    EXPECT_TRUE(house().settings.settingsAdvancedMode.get());

    click("Hide Advanced");
    ASSERT_TRUE(eventually([this] { return lines().size() == 3; }));
    EXPECT_EQ(window()->size(), QSize(480, 360));
}

TEST_F(SettingsWindow, OpensInTheFormItWasLeftIn) {
    house().settings.settingsAdvancedMode.set(true);
    windows().showSettings();
    EXPECT_EQ(window()->size(), QSize(720, 620));
    ASSERT_TRUE(shows("App Rules"));
    EXPECT_FALSE(shows("Advanced…")) << "the other form was built first";
    press(Qt::Key_Down);
    EXPECT_TRUE(element("App Rules")->state().selected) << "the keyboard begins in the list of tabs";
}

TEST_F(SettingsWindow, IsLetGoOfSomeTimeAfterItHasClosedAndNotBefore) {
    windows().showSettings();
    const QPointer<QQuickView> first = window();
    desktop.advance(3600);
    EXPECT_FALSE(first.isNull()) << "a window that is open stays";
    first->close();
    desktop.advance(29);
    EXPECT_FALSE(first.isNull());
    windows().showSettings();
    EXPECT_EQ(window(), first) << "opened again soon, it is the same";
    first->close();
    desktop.advance(31);
    EXPECT_TRUE(first.isNull());
    windows().showSettings();
    EXPECT_TRUE(shows("Ambrel"));
}

TEST_F(SettingsWindow, LeavesNothingBehindEachTimeItIsLetGoOf) {
    const auto used = [this] {
        windows().showSettings();
        EXPECT_TRUE(shows("Ambrel"));
        window()->close();
        desktop.advance(31);
        return mallinfo2().uordblks;
    };
    used();
    const auto before = used();
    used();
    used();
    EXPECT_LT(used(), before + 3 * bytesOfAView);
}

TEST_F(SettingsWindow, BindsItsSwitchesBothWays) {
    auto& settings = house().settings;
    windows().showSettings();
    click("Auto-quit on close");
    EXPECT_TRUE(settings.isPaused.get());
    settings.isPaused.set(false);
    EXPECT_TRUE(element("Auto-quit on close")->state().checked);
    const bool before = settings.quitOnlyWhenOneWindowLeft.get();
    click("Quit only after the last window closes");
    EXPECT_NE(settings.quitOnlyWhenOneWindowLeft.get(), before);
}

} // namespace
} // namespace ambrel
