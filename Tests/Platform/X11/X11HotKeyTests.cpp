#include "Platform/Linux/EventLoop.h"
#include "Platform/Linux/X11HotKeyCenter.h"
#include "Platform/X11/PlayedDesktop.h"
#include "Support/LoggedTest.h"

#include <QProcess>
#include <gtest/gtest.h>

namespace ambrel {
namespace {

constexpr HotKey quitAll{12, 0xB00};
const QString combination = "super+alt+shift+q";

void run(const QString& program, const QStringList& arguments) {
    QProcess process;
    process.start(program, arguments);
    EXPECT_TRUE(process.waitForFinished()) << program.toStdString();
    EXPECT_EQ(process.exitCode(), 0) << process.readAllStandardError().toStdString();
}

class X11HotKeyTest : public LoggedTest {
protected:
    X11HotKeyTest() {
        run("setxkbmap", {"us"});
        observer = connection->event.subscribe([this](const xcb_generic_event_t& event) {
            seenPresses += event.response_type == XCB_KEY_PRESS ? 1 : 0;
            mapChanges += event.response_type == XCB_MAPPING_NOTIFY ? 1 : 0;
        });
        connection->start();
    }

    HotKeyResult registerHotKey() {
        return center.registerHotKey(quitAll, [this] { ++presses; });
    }
    /// The combination reaches us, and once.
    [[nodiscard]] bool works(const QString& keys = combination) {
        const int before = presses;
        run("xdotool", {"key", keys});
        return runUntil([&] { return presses > before; }) && presses == before + 1;
    }
    void changeMap(const QString& program, const QStringList& arguments) {
        const int before = mapChanges;
        run(program, arguments);
        sync(*connection);
        EXPECT_TRUE(runUntil([&] { return mapChanges > before; }));
        sync(*connection);
    }

    std::unique_ptr<X11Connection> connection = connect();
    X11HotKeyCenter center{*connection};
    Subscription observer;
    int seenPresses = 0;
    int mapChanges = 0;
    int presses = 0;
};

/// Another program that wants the same keys.
struct Rival {
    std::unique_ptr<X11Connection> connection;

    [[nodiscard]] bool grab(xcb_keycode_t key, std::uint16_t state) const {
        auto* const raw = connection->raw();
        const auto request =
            xcb_grab_key_checked(raw, 0, connection->root(), state, key, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
        return !X11Message<xcb_generic_error_t>(xcb_request_check(raw, request));
    }
    /// Gives it back at once.
    [[nodiscard]] bool canGrab(xcb_keycode_t key, std::uint16_t state) const {
        const bool granted = grab(key, state);
        xcb_ungrab_key(connection->raw(), key, connection->root(), XCB_MOD_MASK_ANY);
        sync(*connection);
        return granted;
    }
};

TEST_F(X11HotKeyTest, LocksAreOfNoAccount) {
    const auto result = registerHotKey();
    ASSERT_EQ(result.status, 0);
    EXPECT_TRUE(works());
    for (const auto* const lock : {"Caps_Lock", "Num_Lock"}) {
        run("xdotool", {"key", lock});
        EXPECT_TRUE(works()) << lock;
    }
    run("xdotool", {"key", "Caps_Lock"});
    EXPECT_TRUE(works());
    run("xdotool", {"key", "Num_Lock"});
    run("xdotool", {"key", "super+alt+q", "super+shift+q", "alt+shift+q", "super+alt+shift+ctrl+q", "q"});
    EXPECT_TRUE(works());
}

TEST_F(X11HotKeyTest, HoldingTheKeyDownIsOnePress) {
    const auto result = registerHotKey();
    run("xset", {"r", "rate", "100", "50"});
    run("xdotool", {"keydown", "super", "keydown", "alt", "keydown", "shift", "keydown", "q"});
    EXPECT_TRUE(runUntil([&] { return seenPresses > 5; })) << "the key repeats";
    run("xdotool", {"keyup", "q", "keyup", "shift", "keyup", "alt", "keyup", "super"});
    EXPECT_EQ(presses, 1);
    EXPECT_TRUE(works());
}

TEST_F(X11HotKeyTest, FollowsTheKeyboardMap) {
    const auto result = registerHotKey();
    const Rival rival{connect()};
    changeMap("setxkbmap", {"fr"});
    EXPECT_TRUE(works());
    EXPECT_TRUE(rival.canGrab(24, 0x49)) << "where Q was before";
    EXPECT_FALSE(rival.canGrab(38, 0x49));

    changeMap("setxkbmap", {"us,fr"});
    EXPECT_TRUE(works());
    EXPECT_TRUE(rival.canGrab(38, 0x49)) << "an A, until the user changes to the other layout";
    changeMap("setxkbmap", {"ru,us"});
    EXPECT_FALSE(rival.canGrab(24, 0x49)) << "the only Q there is";

    changeMap("setxkbmap", {"us"});
    changeMap("xmodmap", {"-e", "keycode 24 = p P", "-e", "keycode 33 = q Q"});
    EXPECT_TRUE(works());
    EXPECT_FALSE(rival.canGrab(33, 0x49));
    changeMap("xmodmap", {"-e", "clear mod4", "-e", "clear mod3", "-e", "add mod3 = Super_L"});
    EXPECT_FALSE(rival.canGrab(33, 0x29)) << "Super is another modifier now";

    changeMap("xmodmap", {"-e", "clear mod3"});
    log.expectError("RegisterEventHotKey failed: -9879");
    changeMap("xmodmap", {"-e", "add mod4 = Super_L"});
    EXPECT_TRUE(works()) << "it is there again";
    EXPECT_EQ(log.texts("hotkey").back(), "registered global hotkey (keyCode 12)");
}

TEST_F(X11HotKeyTest, ACombinationThatAnotherProgramHasIsLeftToIt) {
    const Rival rival{connect()};
    ASSERT_TRUE(rival.grab(24, 0x4b)) << "with CapsLock only";
    const auto refused = registerHotKey();
    EXPECT_EQ(refused.status, -9878);
    EXPECT_EQ(refused.registration, nullptr);
    sync(*connection);
    EXPECT_TRUE(rival.canGrab(24, 0x49)) << "nothing of it is kept back";
}

TEST_F(X11HotKeyTest, GivesTheCombinationBack) {
    auto result = registerHotKey();
    result.registration.reset();
    sync(*connection);
    const Rival rival{connect()};
    EXPECT_TRUE(rival.canGrab(24, 0x49));

    // From within its own call, too.
    result = center.registerHotKey(quitAll, [&] { result.registration.reset(), ++presses; });
    EXPECT_TRUE(works());
}

} // namespace
} // namespace ambrel
