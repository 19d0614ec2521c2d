#include "UI/ViewTest.h"

namespace ambrel {
namespace {

class Confirmation : public ViewTest {
protected:
    void ask(int count, bool force = false) {
        answer = "none";
        windows().confirmQuitAll(place, {.count = count,
                                         .force = force,
                                         .onConfirm = [this] { answer = window() == nullptr ? "yes" : "still open"; },
                                         .onCancel =
                                             [this] {
                                                 answer = "no";
                                             }});
    }

    std::string answer;
};

TEST_F(Confirmation, AsksInTheWordsOfWhatWillBeDone) {
    const std::vector<std::tuple<int, bool, std::string>> cases{
        {1, false, "Quit 1 app?"}, {12, false, "Quit 12 apps?"}, {2, true, "Force quit 2 apps?"}};
    for (const auto& [count, force, title] : cases) {
        ask(count, force);
        EXPECT_TRUE(shows(title));
        EXPECT_EQ(shows("Apps with unsaved changes will ask you to save."), !force);
        EXPECT_EQ(shows("Force quitting skips save prompts — unsaved work may be lost."), force);
        EXPECT_EQ(shows("Force Quit"), force);
    }
}

TEST_F(Confirmation, TakesReturnForYesAndEverythingElseForNo) {
    ask(3);
    press(Qt::Key_Return);
    EXPECT_EQ(answer, "yes");
    ask(3);
    click("Quit All");
    EXPECT_EQ(answer, "yes");
    ask(3);
    click("Cancel");
    EXPECT_EQ(answer, "no");
    ask(3);
    press(Qt::Key_Escape);
    EXPECT_NE(answer, "yes");
    EXPECT_EQ(window(), nullptr);
    ask(3);
    desktop.clickMonitor().pressed.emit(10, 500);
    EXPECT_NE(answer, "yes");
    EXPECT_EQ(window(), nullptr);
    // The keyboard may stand on the other button.
    ask(3);
    press(Qt::Key_Backtab);
    press(Qt::Key_Return);
    EXPECT_EQ(answer, "no");
}

} // namespace
} // namespace ambrel
