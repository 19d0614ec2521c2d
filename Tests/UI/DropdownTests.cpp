#include "UI/ViewTest.h"

namespace ambrel {
namespace {

class Dropdown : public ViewTest {
protected:
    void open() {
        windows().showDropdown(place, {.togglePause = [this] { settings().isPaused.set(!settings().isPaused.get()); },
                                       .quitAll = [this] { done += "quit all;"; },
                                       .runningApps = [this] { done += "running apps;"; },
                                       .openSettings = [this] { done += "settings;"; },
                                       .quitApp =
                                           [this] {
                                               done += "quit;";
                                           }});
    }
    [[nodiscard]] AppSettings& settings() { return house().settings; }
    [[nodiscard]] bool comes(const std::string& text) {
        return eventually([&] { return shows(text); });
    }

    std::string done;
};

TEST_F(Dropdown, SaysInOneLineWhatTheProgramIsDoing) {
    open();
    EXPECT_TRUE(comes("Active · watching 0 apps"));
    engine().monitoredCount.set(1);
    EXPECT_TRUE(comes("Active · watching 1 app"));
    engine().monitoredCount.set(2);
    EXPECT_TRUE(comes("Active · watching 2 apps"));
    settings().isPaused.set(true);
    EXPECT_TRUE(comes("Paused — auto-quit off"));
}

TEST_F(Dropdown, RunsItsRowsByPointerAndByKey) {
    open();
    for (const char* const row : {"Quit All Apps", "Running Apps…", "Settings…", "Quit Ambrel"}) {
        click(row);
    }
    EXPECT_EQ(done, "quit all;running apps;settings;quit;");
    done.clear();
    windows().dismissDropdown();
    open();
    press(Qt::Key_Comma, Qt::ControlModifier);
    press(Qt::Key_Q, Qt::MetaModifier);
    press(Qt::Key_Tab);
    press(Qt::Key_Return);
    press(Qt::Key_Down);
    press(Qt::Key_Space);
    EXPECT_EQ(done, "settings;quit;quit all;running apps;");
}

TEST_F(Dropdown, ClosesOnEscapeAClickElsewhereAndAnotherActiveWindow) {
    auto& editor = launchWithWindow();
    const std::vector<std::pair<std::string, std::function<void()>>> ways{
        {"escape",
         [this] {
             press(Qt::Key_Escape);
         }},
        {"click elsewhere",
         [this] {
             desktop.clickMonitor().pressed.emit(10, 500);
         }},
        {"another window", [&] {
             desktop.workspace().didActivate.emit(desktop.workspace().runningApplication(editor.processIdentifier()));
         }}};
    for (const auto& [name, close] : ways) {
        open();
        ASSERT_TRUE(windows().isDropdownVisible()) << name;
        close();
        EXPECT_FALSE(windows().isDropdownVisible()) << name;
        EXPECT_FALSE(desktop.clickMonitor().pressed.hasObservers()) << name;
    }
    EXPECT_EQ(done, "");
}

TEST_F(Dropdown, LeavesAClickOnItsIconToTheIconAndIsNotOpenedAgainByTheClickThatClosedIt) {
    open();
    desktop.clickMonitor().pressed.emit(place.button.x + 3, place.button.y + 3);
    EXPECT_TRUE(windows().isDropdownVisible());
    // A large icon: the press falls outside of the place that the first click told.
    desktop.clickMonitor().pressed.emit(690, 3);
    ASSERT_FALSE(windows().isDropdownVisible());
    place.button.x = 680;
    open();
    EXPECT_FALSE(windows().isDropdownVisible());
    open();
    EXPECT_TRUE(windows().isDropdownVisible());
}

} // namespace
} // namespace ambrel
