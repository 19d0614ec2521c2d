#include "UI/ViewTest.h"

#include <QTest>
#include <gmock/gmock.h>

namespace ambrel {
namespace {

using ::testing::ElementsAre;

class RunningAppsWindow : public ViewTest {
protected:
    simulated::SimulatedApplication& launchApp(const std::string& name) {
        return desktop.launch("org.example." + name, name);
    }
    void open() {
        windows().showRunningApps();
        ASSERT_TRUE(shows("Search apps…"));
    }
    [[nodiscard]] bool isDisabled(const std::string& name) {
        return !element(name)->object()->property("enabled").toBool();
    }
    void type(const std::string& text) {
        for (const char letter : text) {
            QTest::keyClick(window(), letter);
        }
        QCoreApplication::processEvents();
    }
};

TEST_F(RunningAppsWindow, QuitsWhatIsChosenAlsoWhereTheSearchHidesIt) {
    const auto editor = launchApp("Editor").processIdentifier();
    const auto writer = launchApp("Writer").processIdentifier();
    launchApp("Player");
    open();
    EXPECT_TRUE(isDisabled("Quit Selected (0)"));
    click("Editor");
    click("Writer");
    EXPECT_TRUE(element("Writer")->state().selected);
    click("Search apps…");
    type("play");
    click("Quit Selected (2)");
    EXPECT_THAT(terminated(), ElementsAre(editor, writer));
    desktop.advance(1);
    EXPECT_TRUE(shows("Quit Selected (0)"));
    click("Clear");
    EXPECT_TRUE(shows("1 running"));
}

TEST_F(RunningAppsWindow, QuitsForceQuitsHidesAndExcludesOne) {
    auto& editor = launchApp("Editor");
    auto& player = launchApp("Player");
    auto& viewer = launchApp("Viewer");
    viewer.openWindow();
    auto& writer = launchApp("Writer");
    open();
    const auto choose = [this](const char* app, const char* entry) {
        click(std::string("More for ") + app);
        click(entry);
        EXPECT_FALSE(shows(entry));
    };
    click("Quit Editor");
    choose("Player", "Force Quit");
    choose("Viewer", "Hide");
    choose("Writer", "Add to exclude list");
    EXPECT_THAT(terminated(), ElementsAre(editor.processIdentifier()));
    EXPECT_THAT(decisions(), ElementsAre("manual terminated Editor", "manual force-terminated Player"));
    desktop.settle();
    EXPECT_TRUE(player.isTerminated());
    EXPECT_TRUE(viewer.isHidden());
    EXPECT_FALSE(house().rules.rule(*writer.bundleIdentifier()).quitOnLastWindowClose);
}

TEST_F(RunningAppsWindow, TheMenuMeansTheApplicationItWasOpenedFor) {
    auto& editor = launchApp("Editor");
    auto& writer = launchApp("Writer");
    open();
    click("Quit Editor");
    click("More for Writer");
    desktop.advance(1);
    ASSERT_TRUE(editor.isTerminated());
    click("Force Quit");
    desktop.settle();
    EXPECT_TRUE(writer.isTerminated());
}

TEST_F(RunningAppsWindow, IsUsedByKeysAlone) {
    launchApp("Editor");
    auto& player = launchApp("Player");
    player.openWindow();
    auto& writer = launchApp("Writer");
    open();
    press(Qt::Key_Down);
    press(Qt::Key_End);
    press(Qt::Key_Space);
    EXPECT_TRUE(element("Writer")->state().selected);
    press(Qt::Key_Up);
    press(Qt::Key_Menu);
    press(Qt::Key_Down);
    press(Qt::Key_Return);
    EXPECT_TRUE(player.isHidden()) << "the second entry, for the second row";
    press(Qt::Key_Menu);
    press(Qt::Key_Escape);
    ASSERT_NE(window(), nullptr) << "Escape closes the menu first";
    for (int tab = 0; tab < 3; ++tab) {
        press(Qt::Key_Tab);
    }
    press(Qt::Key_Return);
    EXPECT_THAT(terminated(), ElementsAre(writer.processIdentifier())) << "behind the row and its buttons";
    press(Qt::Key_Escape);
    EXPECT_EQ(window(), nullptr);
}

TEST_F(RunningAppsWindow, ComesBackAsItWasLeft) {
    launchApp("Editor");
    launchApp("Writer");
    open();
    type("wri");
    click("Writer");
    window()->close();
    EXPECT_EQ(desktop.application().policy, ActivationPolicy::accessory);
    launchApp("Typewriter");
    desktop.advance(60);
    open();
    EXPECT_TRUE(shows("1 running")) << "nobody asked for a new list";
    EXPECT_TRUE(element("Writer")->state().selected);
    EXPECT_EQ(desktop.application().policy, ActivationPolicy::regular);
}

} // namespace
} // namespace ambrel
