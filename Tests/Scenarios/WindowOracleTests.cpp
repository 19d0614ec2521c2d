#include "Engine/WindowOracle.h"
#include "Support/AmbrelTest.h"

#include <gtest/gtest.h>

namespace ambrel {
namespace {

class Oracle : public AmbrelTest {
protected:
    std::optional<std::ptrdiff_t> count(const WindowInfo& window) {
        desktop.windowServer().residue = {window};
        return WindowOracle(desktop.windowServer()).windowCount(7);
    }
};

TEST_F(Oracle, CountsWhateverIsNotShownToBeSomethingElse) {
    const Rect ordinary{10, 10, 400, 300};
    for (const auto& window :
         {WindowInfo{7, 0, 1.0, ordinary}, WindowInfo{7, 0, std::nullopt, ordinary}, WindowInfo{7, 0, 0.06, ordinary},
          WindowInfo{7, 0, 1.0, std::nullopt}, WindowInfo{7, 0, 1.0, Rect{0, 0, 64, 64}},
          WindowInfo{7, 0, 1.0, Rect{0, 0, 1920, 1079}}}) {
        EXPECT_EQ(count(window), 1) << testing::PrintToString(window.alpha);
    }
    for (const auto& other :
         {WindowInfo{8, 0, 1.0, ordinary}, WindowInfo{std::nullopt, 0, 1.0, ordinary}, WindowInfo{7, 3, 1.0, ordinary},
          WindowInfo{7, std::nullopt, 1.0, ordinary}, WindowInfo{7, 0, 0.05, ordinary},
          WindowInfo{7, 0, 1.0, Rect{0, 0, 63, 500}}, WindowInfo{7, 0, 1.0, Rect{0, 0, 1920, 1080}}}) {
        EXPECT_EQ(count(other), 0) << testing::PrintToString(other.alpha);
    }
}

TEST_F(Oracle, TellsAnEmptyListFromAnUnreadableOne) {
    const WindowOracle oracle(desktop.windowServer());
    EXPECT_EQ(oracle.windowCount(7), 0);
    desktop.windowServer().listUnreadable = true;
    EXPECT_EQ(oracle.windowCount(7), std::nullopt);
    desktop.windowServer().listUnreadable = false;
    desktop.windowServer().displays.reset();
    EXPECT_EQ(count({7, 0, 1.0, Rect{0, 0, 1920, 1080}}), 1) << "without displays, none of them matches";
}

} // namespace
} // namespace ambrel
