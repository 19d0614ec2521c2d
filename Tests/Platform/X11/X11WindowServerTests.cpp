#include "Platform/Linux/EventLoop.h"
#include "Platform/Linux/LinuxMainQueue.h"
#include "Platform/Linux/X11WindowServer.h"
#include "Platform/Linux/X11WindowSource.h"
#include "Platform/X11/PlayedDesktop.h"
#include "Support/SampleProcess.h"

#include <algorithm>
#include <deque>

#include <gtest/gtest.h>

namespace ambrel {
namespace {

class X11WindowServerTest : public testing::Test {
protected:
    void SetUp() override {
        manager.announce();
        manager.publish({});
        source.emplace(*connection, queue);
        server.emplace(*connection, source->mirror());
        connection->start();
    }

    void publish(const std::vector<xcb_window_t>& list) {
        manager.publish(list);
        ASSERT_TRUE(runUntil([&] { return source->mirror().clientList() == list; }));
    }
    [[nodiscard]] std::vector<WindowInfo> onScreen(ProcessId pid) const {
        auto list = server->onScreenWindows(pid).value_or(std::vector<WindowInfo>());
        std::erase_if(list, [pid](const WindowInfo& info) { return info.ownerPID != pid; });
        return list;
    }
    /// How much the server is asked for an answer about this process.
    [[nodiscard]] unsigned requestsFor(ProcessId pid) const {
        const auto before = xcb_no_operation(connection->raw()).sequence;
        EXPECT_TRUE(server->onScreenWindows(pid));
        return xcb_no_operation(connection->raw()).sequence - before - 1;
    }

    LinuxMainQueue queue;
    PlayedWindowManager manager;
    std::unique_ptr<X11Connection> connection = connect();
    std::optional<X11WindowSource> source;
    std::optional<X11WindowServer> server;
};

TEST_F(X11WindowServerTest, AQuestionAboutOneApplicationAsksNothingAboutTheOthers) {
    SampleProcess asked;
    std::vector list{asked.open()};
    publish(list);
    const auto alone = requestsFor(asked.pid());

    std::deque<SampleProcess> others(9);
    for (auto& other : others) {
        list.push_back(other.open());
    }
    manager.frame(list[1], 200, 150);
    publish(list);
    EXPECT_EQ(requestsFor(asked.pid()), alone) << "one in a frame, the rest bare";

    manager.frame(list[2], 200, 150);
    EXPECT_TRUE(runUntil([&] { return requestsFor(asked.pid()) == alone; })) << "one that got its frame later";
}

TEST_F(X11WindowServerTest, AFramedWindowIsSeenOnceAsLargeAsItsFrameAndAsOpaqueAsItself) {
    SampleProcess client;
    const auto listed = client.open();
    publish({listed});
    ASSERT_EQ(onScreen(client.pid()).size(), 1U);
    const auto frame = manager.frame(listed, 400, 300);
    const auto isSeen = [&](double alpha) {
        const auto list = onScreen(client.pid());
        return list.size() == 1 && list.front().bounds == Rect{0, 0, 400, 300} && list.front().alpha == alpha;
    };
    EXPECT_TRUE(runUntil([&] { return isSeen(1); }));
    manager.setWords(frame, X11Atom::netWmWindowOpacity, XCB_ATOM_CARDINAL, {0});
    EXPECT_TRUE(isSeen(0));
    manager.setWords(listed, X11Atom::netWmWindowOpacity, XCB_ATOM_CARDINAL, {0xffffffff});
    EXPECT_TRUE(isSeen(1));
    const auto unlisted = client.open("dialog");
    manager.setWords(unlisted, X11Atom::wmState, XCB_ATOM_CARDINAL, {1, 0});
    manager.frame(unlisted, 100, 90);
    EXPECT_EQ(onScreen(client.pid()).size(), 2U) << "one that the window manager has not published yet";
}

} // namespace
} // namespace ambrel
