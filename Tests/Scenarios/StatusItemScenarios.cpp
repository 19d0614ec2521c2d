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
    pause(true);
    house().settings.hideMenuBarIcon.set(true);
    log.clear();
    install();
    const auto first = desktop.statusBar().item;
    install();
    pause(true);
    EXPECT_EQ(desktop.statusBar().item, first);
    EXPECT_THAT(log.texts("ui"), ElementsAre("menu bar icon hidden",
                                             "status item installed — icon loaded 1x1 template=true, buttonWidth=22"))
        << "one subscription each";
    EXPECT_EQ(item().picture(), plain(200));
    EXPECT_FALSE(item().isVisible());
    house().settings.hideMenuBarIcon.set(false);
    EXPECT_TRUE(item().isVisible());
    EXPECT_EQ(item().picture(), plain(200));
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

TEST_F(StatusItemScenario, AChangeFadesAndThenRestsAlsoWhenItIsTurnedRound) {
    pause(true);
    install();
    EXPECT_THAT(item().film, ::testing::Each(plain(200))) << "no fade at the start";
    pause(false);
    desktop.advance(0.12);
    const int middle = shade();
    EXPECT_NEAR(middle, 100, 20);
    pause(true);
    EXPECT_EQ(shade(), middle);
    desktop.advance(0.05);
    EXPECT_GT(shade(), middle);
    desktop.advance(0.2);
    EXPECT_EQ(item().picture(), plain(200));
    const auto frames = item().film.size();
    desktop.advance(60);
    EXPECT_EQ(item().film.size(), frames);
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
    statusItem().quitAllAction();
    desktop.advance(0.101);
    statusItem().pulse(); // takes over where the last one is
    desktop.advance(0.02);
    EXPECT_GT(glow(), 0.5);
    desktop.advance(0.181);
    EXPECT_EQ(item().tint(), (IconTint{.red = 229, .green = 72, .blue = 77, .amount = 1}));
    desktop.advance(0.201);
    EXPECT_EQ(item().tint(), std::nullopt);
    const auto frames = item().tints.size();
    desktop.advance(60);
    EXPECT_EQ(item().tints.size(), frames);
}

TEST_F(StatusItemScenario, AsksBeforeQuitAllWhereTheUserWantsThatAlsoWithAHiddenItem) {
    house().settings.confirmBeforeQuitAll.set(true);
    house().settings.hideMenuBarIcon.set(true);
    install();
    const auto pid = launchApp();
    statusItem().quitAllAction();
    launchApp(); // comes too late to be counted
    desktop.settle();
    ASSERT_TRUE(windows.question);
    EXPECT_EQ(windows.question->count, 1);
    EXPECT_FALSE(windows.question->force);
    EXPECT_EQ(windows.shownAt, item().spot.button);
    windows.question->onCancel();
    desktop.advance(0.1);
    EXPECT_THAT(terminated(), IsEmpty());
    EXPECT_EQ(glow(), 0);
    windows.question->onConfirm();
    desktop.advance(0.1);
    EXPECT_EQ(terminated().front(), pid);
    EXPECT_GT(glow(), 0);
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
