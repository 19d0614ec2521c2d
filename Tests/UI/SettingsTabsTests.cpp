#include "Engine/QuitAllHotKey.h"
#include "UI/ViewTest.h"

namespace ambrel {
namespace {

class SettingsTabs : public ViewTest {
protected:
    void openGeneral() {
        settings().settingsAdvancedMode.set(true);
        windows().showSettings();
    }
    /// Goes there by the keyboard, which brings it into sight.
    void reach(const std::string& name) {
        ASSERT_TRUE(eventually([&] {
            press(Qt::Key_Tab);
            return shows(name) && element(name)->state().focused;
        })) << name;
    }
    [[nodiscard]] bool comes(const std::string& text) {
        return eventually([&] { return shows(text); });
    }
    void toggle(const std::string& name) {
        reach(name);
        press(Qt::Key_Space);
    }
    [[nodiscard]] AppSettings& settings() { return house().settings; }
};

TEST_F(SettingsTabs, AskBeforeTheLastIconGoes) {
    struct Case {
        bool dock, hidden; ///< as it is
        const char* choice;
        const char* question; ///< none asks nothing
        const char* yes;
    };
    const char* const dock = "Show Dock icon";
    const char* const hide = "Hide menu bar icon";
    const std::vector<Case> cases{{false, false, hide, "Hide menu bar icon?", "Hide Icon"},
                                  {true, true, dock, "Hide the Dock icon too?", "Hide Dock Icon"},
                                  {true, false, hide, nullptr, nullptr},
                                  {true, false, dock, nullptr, nullptr},
                                  {false, true, hide, nullptr, nullptr},
                                  {false, true, dock, nullptr, nullptr}};
    openGeneral();
    for (const auto& [showDock, hidden, choice, question, yes] : cases) {
        const auto set = [&, showDock = showDock, hidden = hidden] {
            settings().showDockIcon.set(showDock);
            settings().hideMenuBarIcon.set(hidden);
        };
        const auto changed = [&, showDock = showDock, hidden = hidden] {
            return settings().showDockIcon.get() != showDock || settings().hideMenuBarIcon.get() != hidden;
        };
        set();
        settings().seenHideIconWarning.set(false);
        toggle(choice);
        EXPECT_EQ(changed(), question == nullptr) << choice;
        if (question != nullptr) {
            ASSERT_TRUE(comes(question));
            press(Qt::Key_Escape);
            ASSERT_TRUE(eventually([&, question = question] { return !shows(question); }));
            EXPECT_FALSE(changed());
            EXPECT_EQ(element(choice)->state().checked, choice == dock);
            toggle(choice);
            ASSERT_TRUE(comes(question));
            click(yes);
            EXPECT_TRUE(changed());
            EXPECT_EQ(settings().seenHideIconWarning.get(), choice == hide);
            ASSERT_TRUE(eventually([&, question = question] { return !shows(question); }));
        }
    }
}

TEST_F(SettingsTabs, TakeTheHotkeyAndGiveItBack) {
    int pressed = 0;
    hotKeys.onTrigger = [&] {
        ++pressed;
    };
    settings().quitAllHotKeyEnabled.set(false);
    openGeneral();
    toggle("Global hotkey for Quit All");
    desktop.hotKeyCenter().press(quitAllHotKey);
    EXPECT_TRUE(settings().quitAllHotKeyEnabled.get());
    EXPECT_EQ(pressed, 1);
    toggle("Global hotkey for Quit All");
    desktop.hotKeyCenter().press(quitAllHotKey);
    EXPECT_FALSE(settings().quitAllHotKeyEnabled.get());
    EXPECT_EQ(pressed, 1);
}

TEST_F(SettingsTabs, ShowWhatTheDesktopMadeOfTheLoginItem) {
    auto& item = desktop.loginItem();
    const char* const launch = "Launch at Login";
    for (const bool advanced : {false, true}) {
        settings().settingsAdvancedMode.set(advanced);
        item = {};
        windows().showSettings();
        toggle(launch);
        EXPECT_EQ(item.current, LoginItemStatus::enabled);
        EXPECT_TRUE(element(launch)->state().checked);
        window()->close();
        item.current = LoginItemStatus::notRegistered;
        item.afterRegistering = LoginItemStatus::requiresApproval;
        windows().showSettings();
        EXPECT_FALSE(element(launch)->state().checked) << "turned off while the window was closed";
        toggle(launch);
        EXPECT_EQ(item.current, LoginItemStatus::requiresApproval);
        EXPECT_FALSE(element(launch)->state().checked);
        window()->close();
        desktop.advance(31);
    }
}

TEST_F(SettingsTabs, MoveTheQuitDelayInTenths) {
    openGeneral();
    EXPECT_TRUE(comes("0.5s"));
    reach("Quit delay");
    press(Qt::Key_Right);
    EXPECT_EQ(settings().quitDelay.get(), 0.6);
    EXPECT_TRUE(comes("0.6s"));
    settings().quitDelay.set(4.9);
    press(Qt::Key_Right);
    press(Qt::Key_Right);
    EXPECT_EQ(settings().quitDelay.get(), 5);
    settings().quitDelay.set(12);
    EXPECT_TRUE(comes("12.0s")) << "written by hand, it is honoured";
}

TEST_F(SettingsTabs, TellWhatWasDecidedAndShowTheLog) {
    using Audit = TerminationAudit;
    openGeneral();
    click("History");
    ASSERT_TRUE(comes("No quits yet"));
    house().audit.record(Audit::Path::lastWindow, "org.example.Editor", "Editor", 1, Audit::Action::terminated);
    house().audit.record(Audit::Path::idle, "org.example.Player", "Player", 2, Audit::Action::hidden, "idle=1805s");
    house().audit.drain();
    click("Refresh");
    EXPECT_TRUE(comes("Player — hidden, Idle past its limit (idle=1805s)., 0 sec. ago"));
    EXPECT_TRUE(comes("Showing the last 2 decisions. The full log never rotates: " + house().audit.fileURL().string()));
    click("Show Log File");
    EXPECT_EQ(desktop.workspace().revealed, std::vector{house().audit.fileURL()});
    house().audit.record(Audit::Path::manual, "org.example.Reader", "Reader", 3, Audit::Action::terminated);
    house().audit.drain();
    click("About");
    ASSERT_TRUE(comes("Version 4.2"));
    click("History");
    ASSERT_TRUE(comes("Reader — quit, Quit from the Running Apps list., 0 sec. ago"));
}

TEST_F(SettingsTabs, SayWhatTheProgramIsAndEndIt) {
    openGeneral();
    click("About");
    ASSERT_TRUE(comes("Version 4.2"));
    click("ambrel.app");
    EXPECT_EQ(desktop.workspace().links, std::vector<std::string>{"https://ambrel.app"});
    click("Quit Ambrel");
    desktop.settle();
    EXPECT_TRUE(desktop.application().terminated);
}

TEST_F(SettingsTabs, LookForNewerVersions) {
    openGeneral();
    click("About");
    ASSERT_TRUE(comes("Automatic updates"));
    EXPECT_TRUE(element("Automatic updates")->state().checked);
    toggle("Automatic updates");
    EXPECT_FALSE(desktop.updater().checks);
    click("Check for Updates…");
    EXPECT_EQ(desktop.updater().userChecks, 1) << "whether or not it is asked for daily";
    desktop.updater().updateOffered.emit("4.3");
    EXPECT_TRUE(comes("Version 4.3 is available."));
    desktop.updater().setAvailable(false);
    EXPECT_TRUE(comes("This system has no package service that can be asked for new versions."));
    click("Check for Updates…");
    EXPECT_EQ(desktop.updater().userChecks, 1);
}

} // namespace
} // namespace ambrel
