#include "Scenarios/LaunchScenario.h"

#include <algorithm>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace ambrel {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// A picture of one pixel in two sizes, which tells how far a fade is.
IconPicture plain(std::uint8_t coverage) {
    return {{1, {coverage}}, {2, std::vector<std::uint8_t>(4, coverage)}};
}

class StatusItemScenario : public LaunchScenario {
protected:
    StatusItemScenario() { icons = {.active = plain(0), .paused = plain(200)}; }

    void install() {
        statusItem().install();
        desktop.settle();
    }
    [[nodiscard]] simulated::SimulatedStatusItem& item() { return *desktop.statusBar().item; }
    [[nodiscard]] int shade() { return item().picture().front().coverage.front(); }
    [[nodiscard]] double glow() { return item().tint() ? item().tint()->amount : 0; }
    void pause(bool paused) { house().settings.isPaused.set(paused); }
    ProcessId launchApp() { return desktop.launch("org.example.Plain", "Plain").processIdentifier(); }
};

TEST_F(StatusItemScenario, IsInstalledOnceAndSaysHowItLooks) {
    struct Case {
        bool paused, hidden;
        IconPicture paint;
        std::vector<std::string> lines;
    };
    const std::string loaded = "status item installed — icon loaded 1x1 template=true, buttonWidth=22";
    for (const auto& each : {
             Case{false, false, plain(0), {"menu bar icon visible", loaded}},
             Case{true, false, plain(200), {"menu bar icon visible", loaded}},
             Case{true, true, plain(200), {"menu bar icon hidden", loaded}},
         }) {
        pause(each.paused);
        house().settings.hideMenuBarIcon.set(each.hidden);
        log.clear();
        install();
        EXPECT_EQ(log.texts("ui"), each.lines);
        EXPECT_EQ(item().picture(), each.paint);
        EXPECT_EQ(item().isVisible(), !each.hidden);
        const auto first = desktop.statusBar().item;
        install();
        EXPECT_EQ(desktop.statusBar().item, first);
        pause(each.paused);
        EXPECT_EQ(log.texts("ui"), each.lines) << "one subscription each";
        forgetStatusItem();
    }
    EXPECT_THAT(desktop.statusBar().made, ElementsAre("ambrel: Ambrel", "ambrel: Ambrel", "ambrel: Ambrel"));
}

TEST_F(StatusItemScenario, WithoutArtworkItIsBlankAndSaysSo) {
    icons = {};
    install();
    EXPECT_THAT(log.texts("ui"),
                ElementsAre("menu bar icon visible",
                            "status item installed — icon NIL (menu bar will be blank), buttonWidth=22"));
    pause(true);
    desktop.advance(1);
    EXPECT_THAT(item().picture(), IsEmpty());
}

TEST_F(StatusItemScenario, TheBuiltIconsAreDrawnAndToldApart) {
    const auto built = StatusIcons::built();
    for (const auto* picture : {&built.active, &built.paused}) {
        std::vector<int> sizes;
        for (const auto& mask : *picture) {
            sizes.push_back(mask.size);
            ASSERT_EQ(mask.coverage.size(), static_cast<std::size_t>(mask.size * mask.size));
            EXPECT_GT(*std::max_element(mask.coverage.begin(), mask.coverage.end()), 250) << mask.size;
            EXPECT_EQ(mask.coverage.front(), 0) << "the corner of a ring is empty";
        }
        EXPECT_THAT(sizes, ElementsAre(16, 22, 24, 32, 44, 48));
    }
    EXPECT_NE(built.active, built.paused);
}

TEST_F(StatusItemScenario, AChangeFadesAndThenRests) {
    pause(true);
    install();
    EXPECT_THAT(item().film, ::testing::Each(plain(200))) << "no fade at the start";
    pause(false);
    EXPECT_EQ(shade(), 200);
    desktop.advance(0.12);
    EXPECT_NEAR(shade(), 100, 20);
    const auto film = item().film;
    EXPECT_TRUE(std::is_sorted(film.rbegin(), film.rend(), [](const auto& one, const auto& other) {
        return one.front().coverage < other.front().coverage;
    }));
    desktop.advance(0.12);
    EXPECT_EQ(item().picture(), plain(0));
    const auto frames = item().film.size();
    EXPECT_NEAR(static_cast<double>(frames), 16, 3);
    desktop.advance(60);
    EXPECT_EQ(item().film.size(), frames);
}

TEST_F(StatusItemScenario, AFadeThatIsTurnedRoundGoesBackFromWhereItIs) {
    install();
    pause(true);
    desktop.advance(0.12);
    const int middle = shade();
    pause(false);
    EXPECT_EQ(shade(), middle);
    desktop.advance(0.05);
    EXPECT_LT(shade(), middle);
    desktop.advance(0.2);
    EXPECT_EQ(item().picture(), plain(0));
}

TEST_F(StatusItemScenario, IsHiddenAndShownAndKeepsItsPictureMeanwhile) {
    house().settings.hideMenuBarIcon.set(true);
    install();
    pause(true);
    desktop.advance(1);
    house().settings.hideMenuBarIcon.set(false);
    EXPECT_TRUE(item().isVisible());
    EXPECT_EQ(item().picture(), plain(200));
    EXPECT_EQ(log.texts("ui").back(), "menu bar icon visible");
}

TEST_F(StatusItemScenario, AClickTogglesTheDropdownUnderTheItem) {
    install();
    item().click();
    ASSERT_TRUE(windows.isDropdownVisible());
    EXPECT_EQ(windows.shownAt, item().spot.button);
    item().click();
    EXPECT_FALSE(windows.isDropdownVisible());
}

TEST_F(StatusItemScenario, TheRowsOfTheDropdownAndTheEntriesOfTheMenuDoTheSame) {
    using Choose = std::function<void(const char* title, void (*row)(Windows::DropdownActions&))>;
    const Choose byRow = [this](const char*, auto row) {
        item().click();
        row(*windows.dropdown);
    };
    const Choose byMenu = [this](const char* title, auto) {
        EXPECT_TRUE(item().choose(title)) << title;
    };
    install();
    struct Way {
        Choose choose;
        bool staysOpen;
    };
    for (const auto& each : {Way{byRow, true}, Way{byMenu, false}}) {
        const auto& choose = each.choose;
        const auto pid = launchApp();
        windows.opened.clear();
        choose("Pause", [](auto& rows) { rows.togglePause(); });
        EXPECT_TRUE(house().settings.isPaused.get());
        EXPECT_EQ(windows.isDropdownVisible(), each.staysOpen);
        windows.dismissDropdown();
        choose("Resume", [](auto& rows) { rows.togglePause(); });
        EXPECT_FALSE(house().settings.isPaused.get());
        windows.dismissDropdown();
        choose("Running Apps…", [](auto& rows) { rows.runningApps(); });
        choose("Settings…", [](auto& rows) { rows.openSettings(); });
        choose("Quit All Apps", [](auto& rows) { rows.quitAll(); });
        EXPECT_THAT(windows.opened, ElementsAre("running apps", "settings"));
        EXPECT_FALSE(windows.isDropdownVisible());
        desktop.settle();
        EXPECT_EQ(terminated().back(), pid);
        choose("Quit Ambrel", [](auto& rows) { rows.quitApp(); });
        desktop.settle();
        EXPECT_TRUE(std::exchange(desktop.application().terminated, false));
        windows.dismissDropdown();
    }
}

TEST_F(StatusItemScenario, QuitAllGlowsInTheAccentAndFadesAgain) {
    install();
    const auto pid = launchApp();
    statusItem().quitAllAction();
    EXPECT_THAT(terminated(), ElementsAre(pid));
    desktop.advance(0.101);
    EXPECT_NEAR(glow(), 0.5, 0.1);
    desktop.advance(0.1);
    EXPECT_EQ(item().tint(), (IconTint{.red = 229, .green = 72, .blue = 77, .amount = 1}));
    desktop.advance(0.1);
    EXPECT_NEAR(glow(), 0.5, 0.1);
    statusItem().pulse(); // takes over where the last one is
    desktop.advance(0.02);
    EXPECT_GT(glow(), 0.5);
    desktop.advance(0.181);
    EXPECT_EQ(glow(), 1);
    desktop.advance(0.201);
    EXPECT_EQ(item().tint(), std::nullopt);
    const auto frames = item().tints.size();
    desktop.advance(60);
    EXPECT_EQ(item().tints.size(), frames);
}

TEST_F(StatusItemScenario, AsksBeforeQuitAllWhereTheUserWantsThat) {
    for (const bool confirms : {false, true}) {
        desktop.statusBar().item.reset();
        forgetStatusItem();
        install();
        house().settings.confirmBeforeQuitAll.set(true);
        const auto pid = launchApp();
        statusItem().quitAllAction();
        launchApp(); // comes too late to be counted
        EXPECT_FALSE(windows.question);
        desktop.settle();
        ASSERT_TRUE(windows.question);
        EXPECT_EQ(windows.question->count, 1);
        EXPECT_FALSE(windows.question->force);
        EXPECT_EQ(windows.shownAt, item().spot.button);
        EXPECT_THAT(terminated(), IsEmpty());
        confirms ? windows.question->onConfirm() : windows.question->onCancel();
        desktop.advance(0.1);
        EXPECT_EQ(glow() > 0, confirms);
        if (confirms) {
            EXPECT_EQ(terminated().front(), pid);
        } else {
            EXPECT_THAT(terminated(), IsEmpty());
            for (const auto& app : desktop.workspace().runningApplications()) {
                app->forceTerminate();
            }
            desktop.settle();
        }
        windows.question.reset();
    }
}

TEST_F(StatusItemScenario, AHiddenItemIsNoReasonNotToAsk) {
    house().settings.hideMenuBarIcon.set(true);
    house().settings.confirmBeforeQuitAll.set(true);
    install();
    launchApp();
    statusItem().quitAllAction();
    desktop.settle();
    EXPECT_TRUE(windows.question);
    EXPECT_THAT(terminated(), IsEmpty());
}

TEST_F(StatusItemScenario, WithoutAnItemQuitAllRunsWithoutAsking) {
    house().settings.confirmBeforeQuitAll.set(true);
    desktop.statusBar().takesItems = false;
    install();
    EXPECT_THAT(log.texts("ui"),
                ElementsAre("status item installed — icon NIL (menu bar will be blank), buttonWidth=-1"));
    auto& app = desktop.launch("org.example.Plain", "Plain");
    statusItem().showConfirm(true);
    desktop.advance(1);
    EXPECT_FALSE(windows.question);
    EXPECT_TRUE(app.isTerminated());
    EXPECT_THAT(decisions(), ElementsAre("quit-all force-terminated Plain"));
}

TEST_F(StatusItemScenario, WhatIsStillOpenWhenItGoesDoesNothing) {
    install();
    house().settings.confirmBeforeQuitAll.set(true);
    statusItem().quitAllAction();
    desktop.settle();
    item().click();
    pause(true);
    statusItem().pulse();
    const auto menu = item().menu;
    forgetStatusItem();
    launchApp();
    windows.question->onConfirm();
    windows.dropdown->quitAll();
    menu.front().action();
    item().click();
    desktop.advance(1);
    EXPECT_THAT(terminated(), IsEmpty());
    EXPECT_LT(glow(), 1);
}

} // namespace
} // namespace ambrel
