#include "UI/StatusBar/PanelPlace.h"

#include <algorithm>
#include <cmath>

namespace ambrel {

namespace {
constexpr double margin = 8;
constexpr double gap = 6;
} // namespace

Rect panelPlace(double width, double height, const StatusItemPlace& place, double scale) {
    const auto& [button, room] = place;
    double x = std::round(button.x + button.width / 2 - width / 2);
    x = std::max(x, room.x + margin * scale);
    // Where the panel is wider than the room, the far bound wins.
    x = std::min(x, room.x + room.width - width - margin * scale);
    const bool isAtBottom = button.y + button.height / 2 > room.y + room.height / 2;
    const double y = isAtBottom ? button.y - gap * scale - height : button.y + button.height + gap * scale;
    return {x, std::round(y), width, height};
}

} // namespace ambrel
