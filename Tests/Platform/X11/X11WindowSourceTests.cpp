#include "Platform/Linux/EventLoop.h"
#include "Platform/Linux/LinuxMainQueue.h"
#include "Platform/Linux/X11WindowSource.h"
#include "Platform/X11/PlayedDesktop.h"
#include "Support/SampleProcess.h"

#include <algorithm>

#include <gtest/gtest.h>

namespace ambrel {
namespace {

class X11WindowSourceTest : public testing::Test {
protected:
    void SetUp() override {
        manager.announce();
        manager.publish({});
        source.emplace(*connection, queue);
        subscriptions.push_back(
            source->didChange.subscribe([this](const WindowChange& change) { changes.push_back(change); }));
        connection->start();
        ASSERT_TRUE(source->isReadable());
    }

    [[nodiscard]] std::size_t count(ProcessId pid) const { return source->windows(pid).size(); }
    [[nodiscard]] bool awaitCount(ProcessId pid, std::size_t expected) {
        return runUntil([&] { return count(pid) == expected; });
    }
    [[nodiscard]] bool awaitReadable(bool readable) {
        return runUntil([&] { return source->isReadable() == readable; });
    }
    [[nodiscard]] bool hasVanished() const {
        return std::any_of(changes.begin(), changes.end(),
                           [](const WindowChange& change) { return change.event == WindowEvent::vanished; });
    }
    /// Has one more window published, so that everything before it has arrived when it has.
    void settle(std::vector<xcb_window_t> list) {
        SampleProcess last;
        list.push_back(last.open());
        manager.publish(list);
        ASSERT_TRUE(awaitCount(last.pid(), 1));
    }

    LinuxMainQueue queue;
    PlayedWindowManager manager;
    std::unique_ptr<X11Connection> connection = connect();
    std::optional<X11WindowSource> source;
    std::vector<WindowChange> changes;
    std::vector<Subscription> subscriptions;
};

TEST_F(X11WindowSourceTest, AWindowManagerThatDiesClosesNothing) {
    SampleProcess client;
    const auto window = client.open();
    const auto dialog = client.open("dialog");
    manager.publish({window, dialog});
    ASSERT_TRUE(awaitCount(client.pid(), 2));

    manager.publish({});
    manager.die();
    ASSERT_TRUE(awaitReadable(false));
    EXPECT_GE(count(client.pid()), 1U);

    manager.announce();
    manager.publish({});
    manager.publish({window});
    manager.publish({window, dialog});
    EXPECT_FALSE(source->isReadable()) << "the list is still growing";
    ASSERT_TRUE(awaitReadable(true));
    const auto windows = source->windows(client.pid());
    EXPECT_EQ(windows.size(), 2U);
    EXPECT_TRUE(std::all_of(windows.begin(), windows.end(), [](const auto& each) { return each.onDesktop; }));
}

TEST_F(X11WindowSourceTest, ASuccessorIsTrustedOnceItHasPublished) {
    SampleProcess client;
    const auto window = client.open();
    manager.publish({window});
    ASSERT_TRUE(awaitCount(client.pid(), 1));
    manager.die();
    ASSERT_TRUE(awaitReadable(false));
    manager.announce();
    bool passed = false;
    queue.asyncAfter(Seconds(0.8), [&] { passed = true; });
    ASSERT_TRUE(runUntil([&] { return passed; }));
    EXPECT_FALSE(source->isReadable()) << "the list that is there is its predecessor's";
    const auto pid = client.pid();
    client.kill();
    ASSERT_TRUE(awaitCount(pid, 0)) << "what ends meanwhile has ended all the same";
    manager.publish({});
    EXPECT_TRUE(awaitReadable(true));
}

TEST_F(X11WindowSourceTest, AMalformedListIsNoEmptyListAndADeletedOneClosesNothing) {
    SampleProcess client;
    const auto window = client.open();
    manager.publish({window});
    ASSERT_TRUE(awaitCount(client.pid(), 1));
    manager.publishText("no list");
    ASSERT_TRUE(awaitReadable(false));
    EXPECT_TRUE(source->windows(client.pid()).front().onDesktop);
    manager.publish({window});
    ASSERT_TRUE(awaitReadable(true));

    manager.removeProperty(manager.root(), X11Atom::netClientList);
    ASSERT_TRUE(runUntil([&] { return !source->windows(client.pid()).front().onDesktop; }));
    EXPECT_TRUE(source->isReadable());
    EXPECT_FALSE(hasVanished());
}

TEST_F(X11WindowSourceTest, OnlyTheServerCanSayThatAWindowIsDestroyed) {
    SampleProcess client;
    const auto window = client.open();
    manager.publish({window});
    ASSERT_TRUE(awaitCount(client.pid(), 1));
    manager.forgeDestruction(window);
    settle({window});
    EXPECT_EQ(count(client.pid()), 1U);
    manager.publish({});
    ASSERT_TRUE(runUntil([&] { return !changes.empty() && changes.back().event == WindowEvent::withdrawn; }));
    EXPECT_EQ(count(client.pid()), 1U) << "withdrawn, and alive";
    const auto pid = client.pid();
    client.kill();
    EXPECT_TRUE(awaitCount(pid, 0));
}

TEST_F(X11WindowSourceTest, AWindowThatLiesBelongsToNobodyAndSpeaksForAll) {
    SampleProcess honest;
    const auto truth = honest.open();
    SampleProcess liar({"--pid", std::to_string(honest.pid())});
    const auto lie = liar.open();
    SampleProcess remote({"--machine", "elsewhere.example.org"});
    const auto far = remote.open();
    manager.publish({truth, lie, far});
    ASSERT_TRUE(awaitCount(honest.pid(), 2));
    EXPECT_EQ(source->processes(), std::vector{honest.pid()});
    EXPECT_EQ(count(liar.pid()), 1U);
    const auto windows = source->windows(honest.pid());
    EXPECT_EQ(std::count_if(windows.begin(), windows.end(), [](const auto& window) { return window.certain; }), 1);
    EXPECT_TRUE(source->confirmOwner(truth, honest.pid()));
    EXPECT_FALSE(source->confirmOwner(lie, honest.pid()));
}

TEST_F(X11WindowSourceTest, AWindowIdThatIsUsedAgainIsAnotherWindow) {
    SampleProcess first;
    const auto window = first.open();
    manager.publish({window});
    ASSERT_TRUE(awaitCount(first.pid(), 1));
    const auto firstPid = first.pid();
    first.kill();
    ASSERT_TRUE(awaitCount(firstPid, 0));
    SampleProcess second({"--class", "other", "Other"});
    ASSERT_EQ(second.open(), window) << "the server gave out another id";
    manager.publish({window});
    ASSERT_TRUE(awaitCount(second.pid(), 1));
    EXPECT_EQ(source->facts(window).identity.wmClassName, "Other");
}

TEST_F(X11WindowSourceTest, PropertiesMayHoldAnything) {
    SampleProcess client({"--class", std::string(3000, 'i'), "c"});
    const auto window = client.open();
    const auto latin = client.open();
    manager.setProperty(latin, XCB_ATOM_WM_CLASS, XCB_ATOM_STRING, 8, std::string("caf\xe9\0B\xc3\xa9po", 10) + '\0');
    const auto wrong = client.open();
    manager.setWords(wrong, X11Atom::netWmWindowType, XCB_ATOM_CARDINAL, {0, 0xffffffff, 7});
    manager.setProperty(wrong, XCB_ATOM_WM_CLASS, XCB_ATOM_STRING, 32, std::string(8, '\0'));
    manager.setProperty(wrong, XCB_ATOM_WM_TRANSIENT_FOR, XCB_ATOM_WINDOW, 32, "");
    manager.publish({window, 0xdeadbeef, latin, 0, wrong, latin, window});
    ASSERT_TRUE(awaitCount(client.pid(), 3));
    EXPECT_EQ(source->facts(window).identity.wmClassInstance, std::string(1024, 'i'));
    EXPECT_EQ(source->facts(latin).identity.wmClassInstance, "caf\u00e9");
    EXPECT_EQ(source->facts(wrong).identity.wmClassInstance, "");
}

TEST_F(X11WindowSourceTest, ParentsInACircleHoldNobodyUp) {
    SampleProcess client;
    const auto one = client.open();
    const auto other = client.open();
    for (const auto& [child, parent] : {std::pair(one, other), std::pair(other, one)}) {
        const std::string bytes(reinterpret_cast<const char*>(&parent), sizeof parent);
        manager.setProperty(child, XCB_ATOM_WM_TRANSIENT_FOR, XCB_ATOM_WINDOW, 32, bytes);
    }
    manager.publish({one, other});
    manager.setWords(manager.root(), X11Atom::netActiveWindow, XCB_ATOM_WINDOW, {one});
    EXPECT_TRUE(runUntil([&] { return source->activeProcess() == client.pid(); }));
}

TEST_F(X11WindowSourceTest, ManyWindowsThatVanishAtOnceLeaveNothingBehind) {
    SampleProcess client;
    std::vector<xcb_window_t> list;
    for (int index = 0; index < 40; ++index) {
        list.push_back(client.open());
        client.writeLine("destroy " + std::to_string(index + 1));
        manager.publish(list);
    }
    const auto kept = client.open();
    manager.publish({kept});
    EXPECT_TRUE(awaitCount(client.pid(), 1));
    settle({kept});
    EXPECT_EQ(count(client.pid()), 1U);
}

} // namespace
} // namespace ambrel
