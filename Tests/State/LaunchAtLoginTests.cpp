#include "State/LaunchAtLogin.h"
#include "Support/AmbrelTest.h"

#include <gmock/gmock.h>

namespace ambrel {
namespace {

using Status = LoginItemStatus;

class LaunchAtLoginTests : public AmbrelTest {
protected:
    simulated::SimulatedLoginItem& item = desktop.loginItem();
};

TEST_F(LaunchAtLoginTests, AsksForAChangeOnlyWhereOneIsNeeded) {
    struct Case {
        Status before;
        bool on;
        Status after;
        int changes;
    };
    const Case cases[] = {
        {Status::enabled, true, Status::enabled, 0},
        {Status::notRegistered, true, Status::enabled, 1},
        {Status::requiresApproval, true, Status::enabled, 1},
        {Status::notFound, true, Status::enabled, 1},
        {Status::enabled, false, Status::notRegistered, 1},
        {Status::requiresApproval, false, Status::requiresApproval, 0},
        {Status::notRegistered, false, Status::notRegistered, 0},
    };
    for (const auto& each : cases) {
        item.current = each.before;
        item.changes = 0;
        log.clear();
        LaunchAtLogin::setEnabled(item, each.on);
        EXPECT_EQ(item.current, each.after);
        EXPECT_EQ(item.changes, each.changes);
        EXPECT_EQ(LaunchAtLogin::isEnabled(item), each.on);
        EXPECT_TRUE(log.contains(each.on ? "launch at login -> true" : "launch at login -> false"));
    }
}

TEST_F(LaunchAtLoginTests, AFailureIsToldAndLeavesWhatIs) {
    item.failure = "no space";
    log.expectError("launch at login set true failed: no space");
    LaunchAtLogin::setEnabled(item, true);
    EXPECT_FALSE(LaunchAtLogin::isEnabled(item));
    EXPECT_FALSE(log.contains("launch at login -> "));
    item.current = Status::enabled;
    log.expectError("launch at login set false failed: no space");
    LaunchAtLogin::setEnabled(item, false);
    EXPECT_TRUE(LaunchAtLogin::isEnabled(item));
    item.current = Status::notFound;
    log.expectError("launch at login could not follow the program: no space");
    LaunchAtLogin::followProgram(item);
}

} // namespace
} // namespace ambrel
