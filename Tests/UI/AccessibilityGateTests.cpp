#include "UI/ViewTest.h"

#include <QTest>

namespace ambrel {
namespace {

class GateWindow : public ViewTest {
protected:
    void present() {
        desktop.windowList().setReadable(false);
        windows().presentGate({.openSettings = [this] { done += "settings;"; },
                               .onClose =
                                   [this] {
                                       done += "close;";
                                   }});
    }
    [[nodiscard]] bool hasPlaceInTheTaskBar() { return desktop.application().policy == ActivationPolicy::regular; }

    std::string done;
};

TEST_F(GateWindow, SaysWhatIsMissingUntilItIsThere) {
    present();
    EXPECT_TRUE(shows("Ambrel lost its permission"));
    EXPECT_TRUE(shows("Waiting for permission…"));
    press(Qt::Key_Return);
    EXPECT_EQ(done, "settings;");
    desktop.windowList().setReadable(true);
    desktop.settle();
    EXPECT_TRUE(shows("Permission granted"));
    EXPECT_TRUE(hasPlaceInTheTaskBar());
    windows().dismissGate();
    EXPECT_EQ(window(), nullptr);
    EXPECT_FALSE(hasPlaceInTheTaskBar());
    EXPECT_EQ(done, "settings;") << "it was not the user who closed it";
}

TEST_F(GateWindow, ClosedByTheUserItGivesItsPlaceBackUnlessAnotherWindowIsOpen) {
    present();
    window()->close();
    EXPECT_FALSE(hasPlaceInTheTaskBar());
    EXPECT_EQ(done, "close;");
    present();
    auto* const gate = window();
    windows().showRunningApps();
    gate->close();
    EXPECT_TRUE(hasPlaceInTheTaskBar());
    windows().dismissGate();
    EXPECT_EQ(done, "close;close;");
}

} // namespace
} // namespace ambrel
