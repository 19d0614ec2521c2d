#include "UI/StatusBar/PanelPlace.h"

#include <gtest/gtest.h>

namespace ambrel {
namespace {

TEST(PanelPlace, KeepsToTheScreenAndToItsIcon) {
    struct Case {
        const char* name;
        StatusItemPlace place;
        double scale;
        double x;
        double y;
    };
    const Rect screen{0, 24, 1000, 776};
    const std::vector<Case> cases{
        {"in the middle", {{500, 0, 24, 24}, screen}, 1, 362, 30},
        {"at the right", {{970, 0, 24, 24}, screen}, 1, 692, 30},
        {"at the left", {{0, 0, 24, 24}, screen}, 1, 8, 30},
        {"a panel at the bottom", {{500, 776, 24, 24}, {0, 0, 1000, 776}}, 1, 362, 570},
        {"too narrow: the right bound wins", {{100, 0, 24, 24}, {0, 24, 200, 776}}, 1, -108, 30},
        {"a second screen", {{1400, 0, 24, 24}, {1000, 24, 500, 400}}, 1, 1192, 30},
        {"twice as fine", {{970, 0, 48, 48}, screen}, 2, 684, 60},
    };
    for (const auto& [name, place, scale, x, y] : cases) {
        const auto frame = panelPlace(300, 200, place, scale);
        EXPECT_EQ(frame, (Rect{x, y, 300, 200})) << name;
    }
}

} // namespace
} // namespace ambrel
