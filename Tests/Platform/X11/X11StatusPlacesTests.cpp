#include "Platform/Linux/X11StatusPlaces.h"
#include "Platform/X11/PlayedDesktop.h"

#include <gtest/gtest.h>

namespace ambrel {
namespace {

/// Two displays side by side, both smaller than the screen.
class TwoDisplays final : public WindowServer {
public:
    [[nodiscard]] std::optional<std::vector<WindowInfo>> onScreenWindows(ProcessId) const override { return {}; }
    [[nodiscard]] std::optional<std::vector<Rect>> onlineDisplays(std::size_t) const override {
        return std::vector{left, right};
    }
    Rect left{0, 0, 640, 800};
    Rect right{640, 0, 640, 600};
};

class X11StatusPlacesTest : public ::testing::Test {
protected:
    ~X11StatusPlacesTest() override { setPanel({}); }

    /// The work areas of the desktops, of which the second one is shown.
    void setPanel(const std::vector<std::uint32_t>& areas) {
        manager.setWords(manager.root(), X11Atom::netWorkarea, XCB_ATOM_CARDINAL, areas);
        manager.setWords(manager.root(), X11Atom::netCurrentDesktop, XCB_ATOM_CARDINAL, {1});
    }
    void movePointer(std::int16_t x, std::int16_t y) {
        xcb_warp_pointer(connection->raw(), XCB_WINDOW_NONE, connection->root(), 0, 0, 0, 0, x, y);
        sync(*connection);
    }

    PlayedWindowManager manager;
    std::unique_ptr<X11Connection> connection = connect();
    TwoDisplays displays;
    X11StatusPlaces places{*connection, displays};
};

TEST_F(X11StatusPlacesTest, AClickIsInTheMiddleOfTheItemAndOnOneDisplay) {
    movePointer(100, 300);
    struct Case {
        const char* name;
        int x, y;
        std::vector<std::uint32_t> areas;
        Rect button, frame;
    };
    const Case cases[] = {
        {"panel above", 700, 13, {0, 0, 9, 9, 0, 26, 1280, 774}, {689, 2, 22, 22}, {640, 26, 640, 574}},
        {"panel below", 20, 790, {0, 0, 9, 9, 0, 0, 1280, 770}, {9, 779, 22, 22}, {0, 0, 640, 770}},
        {"no window manager", 700, 13, {}, {689, 2, 22, 22}, {640, 0, 640, 600}},
        {"an area that makes no sense", 700, 13, {0, 0, 9, 9, 0, 0, 0, 0}, {689, 2, 22, 22}, {640, 0, 640, 600}},
        {"a tray that knows no point", 0, 0, {}, {89, 289, 22, 22}, {0, 0, 640, 800}},
        {"a point between the displays", 2000, 5, {}, {1989, -6, 22, 22}, {0, 0, 640, 800}},
    };
    for (const auto& each : cases) {
        setPanel(each.areas);
        const auto place = places.ofClick(each.x, each.y);
        EXPECT_EQ(place.button, each.button) << each.name;
        EXPECT_EQ(place.visibleFrame, each.frame) << each.name;
    }
}

TEST_F(X11StatusPlacesTest, AnItemThatNobodySeesIsLookedForAtTheEndOfThePanel) {
    movePointer(10, 300);
    setPanel({0, 0, 9, 9, 0, 26, 1280, 774});
    EXPECT_EQ(places.likely().button, (Rect{610, 4, 22, 22}));
    movePointer(900, 300);
    setPanel({0, 0, 9, 9, 0, 0, 1280, 570});
    EXPECT_EQ(places.likely().button, (Rect{1250, 570, 22, 22}));
}

} // namespace
} // namespace ambrel
