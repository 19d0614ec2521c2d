#include "Platform/Linux/EventLoop.h"
#include "Platform/Linux/X11DisplaySleep.h"
#include "Platform/X11/PlayedDesktop.h"
#include "Platform/X11/PlayedPowerLevel.h"

#include <gtest/gtest.h>

namespace ambrel {
namespace {

class X11DisplaySleepTest : public testing::Test {
protected:
    void SetUp() override {
        connection->selectEvents(connection->root(), XCB_EVENT_MASK_PROPERTY_CHANGE);
        sync(*connection);
        changes = displays.didChange.subscribe([this] { ++changeCount; });
        connection->start();
    }
    void TearDown() override {
        forceScreenSaver(XCB_SCREEN_SAVER_RESET);
        PlayedPowerLevel::level = XCB_DPMS_DPMS_MODE_ON;
    }

    /// What the server also does of itself when the power level changes.
    void forceScreenSaver(std::uint8_t mode) {
        xcb_force_screen_saver(other->raw(), mode);
        xcb_flush(other->raw());
    }
    /// Something ordinary happens on the desktop, and has been heard when this returns.
    void stir() {
        int heard = 0;
        const auto event = connection->event.subscribe(
            [&](const auto& each) { heard += each.response_type == XCB_PROPERTY_NOTIFY ? 1 : 0; });
        manager.publish({});
        EXPECT_TRUE(runUntil([&] { return heard > 0; }));
    }
    [[nodiscard]] bool awaitAsleep(bool asleep) {
        return runUntil([&] { return displays.isAsleep() == asleep; });
    }

    PlayedWindowManager manager;
    std::unique_ptr<X11Connection> other = connect();
    std::unique_ptr<X11Connection> connection = connect();
    X11DisplaySleep displays{*connection};
    int changeCount = 0;
    Subscription changes;
};

TEST_F(X11DisplaySleepTest, DarkIsBlankedOrSavingPower) {
    displays.start();
    stir();
    for (const std::uint16_t level : {XCB_DPMS_DPMS_MODE_ON, XCB_DPMS_DPMS_MODE_STANDBY, XCB_DPMS_DPMS_MODE_OFF}) {
        changeCount = 0;
        PlayedPowerLevel::level = level;
        forceScreenSaver(XCB_SCREEN_SAVER_ACTIVE);
        EXPECT_TRUE(awaitAsleep(true)) << level;
        stir();
        PlayedPowerLevel::level = XCB_DPMS_DPMS_MODE_ON;
        forceScreenSaver(XCB_SCREEN_SAVER_RESET);
        EXPECT_TRUE(awaitAsleep(false)) << level;
        EXPECT_EQ(changeCount, 2) << level;
    }
}

TEST_F(X11DisplaySleepTest, DisplaysThatWakeSilentlyAreFoundOutByTheNextEvent) {
    displays.start();
    stir();
    PlayedPowerLevel::level = XCB_DPMS_DPMS_MODE_OFF;
    forceScreenSaver(XCB_SCREEN_SAVER_ACTIVE);
    ASSERT_TRUE(awaitAsleep(true));
    forceScreenSaver(XCB_SCREEN_SAVER_RESET);
    stir();
    stir();
    EXPECT_TRUE(displays.isAsleep());
    PlayedPowerLevel::level = XCB_DPMS_DPMS_MODE_ON;
    EXPECT_TRUE(runUntil([&] {
        stir();
        return !displays.isAsleep();
    }));
}

} // namespace
} // namespace ambrel
