#include "Platform/Linux/EventLoop.h"
#include "Platform/Linux/LinuxMainQueue.h"
#include "Platform/Linux/X11ScreenLocker.h"
#include "Platform/Linux/X11WindowMirror.h"
#include "Platform/Linux/X11WindowSource.h"
#include "Platform/X11/PlayedDesktop.h"

#include <gtest/gtest.h>

namespace ambrel {
namespace {

class X11ScreenLockerTest : public testing::Test {
protected:
    X11ScreenLockerTest() {
        connection->start();
        locker.start();
        sync(*connection);
    }
    ~X11ScreenLockerTest() override { say(XCB_ATOM_NONE); }

    /// A window of the other client that covers this part of the screen.
    xcb_window_t cover(double part, bool overrideRedirect = true) {
        auto* const raw = other->raw();
        const auto window = xcb_generate_id(raw);
        const std::uint32_t values[] = {overrideRedirect ? 1U : 0U};
        xcb_create_window(raw, XCB_COPY_FROM_PARENT, window, other->root(), 0, 0,
                          static_cast<std::uint16_t>(part * other->screen().width_in_pixels),
                          other->screen().height_in_pixels, 0, XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT,
                          XCB_CW_OVERRIDE_REDIRECT, values);
        xcb_map_window(raw, window);
        sync(*other);
        return window;
    }
    void destroy(xcb_window_t window) {
        xcb_destroy_window(other->raw(), window);
        sync(*other);
    }
    void grab() {
        auto* const raw = other->raw();
        const X11Message<xcb_grab_keyboard_reply_t> reply(xcb_grab_keyboard_reply(
            raw, xcb_grab_keyboard(raw, 1, other->root(), XCB_CURRENT_TIME, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC),
            nullptr));
        ASSERT_TRUE(reply && reply->status == XCB_GRAB_STATUS_SUCCESS);
    }
    void ungrab() {
        xcb_ungrab_keyboard(other->raw(), XCB_CURRENT_TIME);
        sync(*other);
    }
    /// What XScreenSaver writes.
    void say(xcb_atom_t state) {
        manager.setWords(manager.root(), X11Atom::screenSaverStatus, XCB_ATOM_INTEGER, {state, 0, 0});
    }
    [[nodiscard]] bool awaitLocked(bool locked) {
        return runUntil([&] { return locker.isLocked() == locked; });
    }
    /// True if it isn't locked after the second look either.
    [[nodiscard]] bool staysUnlocked() {
        return !runUntil([&] { return locker.isLocked(); }, 700);
    }

    PlayedWindowManager manager;
    std::unique_ptr<X11Connection> other = connect();
    std::unique_ptr<X11Connection> connection = connect();
    LinuxMainQueue queue;
    X11WindowSource windows{*connection, queue};
    X11ScreenLocker locker{*connection, windows.mirror(), queue};
};

TEST_F(X11ScreenLockerTest, GrabBehindACoverLocksUntilItEnds) {
    for (const double later : {0.0, 0.2}) {
        grab();
        if (later > 0) {
            static_cast<void>(runUntil([] { return false; }, 200));
        }
        const auto window = cover(0.99);
        EXPECT_TRUE(awaitLocked(true)) << later;
        ungrab();
        EXPECT_TRUE(awaitLocked(false)) << later;
        destroy(window);
    }
}

TEST_F(X11ScreenLockerTest, LockersThatDieUnlock) {
    cover(1);
    grab();
    EXPECT_TRUE(awaitLocked(true));
    say(connection->atom(X11Atom::lock));
    other.reset();
    EXPECT_TRUE(awaitLocked(false));
}

TEST_F(X11ScreenLockerTest, GrabOrCoverAloneLocksNothing) {
    const auto half = cover(0.5);
    const auto ordinary = cover(1, false);
    grab();
    EXPECT_TRUE(staysUnlocked());
    ungrab();
    destroy(half);
    destroy(ordinary);
    cover(1);
    EXPECT_TRUE(staysUnlocked());
}

TEST_F(X11ScreenLockerTest, FrameOfAMaximisedWindowIsNoCover) {
    const auto frame = cover(1);
    auto* const raw = other->raw();
    const auto client = xcb_generate_id(raw);
    xcb_create_window(raw, XCB_COPY_FROM_PARENT, client, frame, 0, 0, 10, 10, 0, XCB_WINDOW_CLASS_INPUT_OUTPUT,
                      XCB_COPY_FROM_PARENT, 0, nullptr);
    sync(*other);
    manager.setWords(client, X11Atom::wmState, connection->atom(X11Atom::wmState), {1, 0});
    grab();
    EXPECT_TRUE(staysUnlocked());
}

TEST_F(X11ScreenLockerTest, XScreenSaverSaysSo) {
    say(connection->atom(X11Atom::lock));
    EXPECT_TRUE(awaitLocked(true));
    X11ScreenLocker late(*connection, windows.mirror(), queue);
    late.start();
    EXPECT_FALSE(late.isLocked()) << "a word that was left behind";
    const auto window = cover(1);
    X11ScreenLocker later(*connection, windows.mirror(), queue);
    later.start();
    EXPECT_TRUE(later.isLocked());
    say(connection->atom(X11Atom::netWmName));
    EXPECT_TRUE(awaitLocked(false));
    destroy(window);
}

} // namespace
} // namespace ambrel
