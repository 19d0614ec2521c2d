#include "Platform/Linux/X11StatusPlaces.h"

#include "Platform/Linux/X11Property.h"

#include <algorithm>
#include <cstdint>

namespace ambrel {

namespace {

constexpr std::size_t mostDisplays = 64;
constexpr double likelyMargin = 8;

Rect common(const Rect& one, const Rect& other) {
    const double x = std::max(one.x, other.x);
    const double y = std::max(one.y, other.y);
    return {x, y, std::min(one.x + one.width, other.x + other.width) - x,
            std::min(one.y + one.height, other.y + other.height) - y};
}

/// Of a screen coordinate, which is signed on the wire.
double signedWord(std::uint32_t word) {
    return static_cast<std::int32_t>(word);
}

} // namespace

StatusItemPlace X11StatusPlaces::ofButton(Rect button) const {
    const auto display = displayAt({button.x + button.width / 2, button.y + button.height / 2});
    return {.button = button, .visibleFrame = visibleFrame(display)};
}

StatusItemPlace X11StatusPlaces::ofClick(int x, int y) const {
    const auto centre = x != 0 || y != 0 ? Point{static_cast<double>(x), static_cast<double>(y)} : pointer();
    return ofButton({centre.x - usualSize / 2, centre.y - usualSize / 2, usualSize, usualSize});
}

StatusItemPlace X11StatusPlaces::likely() const {
    const auto display = displayAt(pointer());
    const auto frame = visibleFrame(display);
    const double above = frame.y - display.y;
    const double below = display.y + display.height - (frame.y + frame.height);
    Rect button{frame.x + frame.width - usualSize - likelyMargin, 0, usualSize, usualSize};
    button.y = below > above ? frame.y + frame.height : frame.y - usualSize;
    return {.button = button, .visibleFrame = frame};
}

X11StatusPlaces::Point X11StatusPlaces::pointer() const {
    auto* const raw = connection_.raw();
    const X11Message<xcb_query_pointer_reply_t> reply(
        xcb_query_pointer_reply(raw, xcb_query_pointer(raw, connection_.root()), nullptr));
    return reply ? Point{static_cast<double>(reply->root_x), static_cast<double>(reply->root_y)} : Point();
}

Rect X11StatusPlaces::displayAt(Point point) const {
    const auto displays = windowServer_.onlineDisplays(mostDisplays);
    if (!displays || displays->empty()) {
        return {};
    }
    const auto holds = [point](const Rect& display) {
        return point.x >= display.x && point.x < display.x + display.width && point.y >= display.y &&
               point.y < display.y + display.height;
    };
    const auto found = std::find_if(displays->begin(), displays->end(), holds);
    return found != displays->end() ? *found : displays->front();
}

Rect X11StatusPlaces::workArea() const {
    const X11PropertyRequest current(connection_, connection_.root(), connection_.atom(X11Atom::netCurrentDesktop), 4);
    const X11PropertyRequest areas(connection_, connection_.root(), connection_.atom(X11Atom::netWorkarea));
    const std::size_t first = 4 * static_cast<std::size_t>(current.take().word().value_or(0));
    const auto words = areas.take().words();
    if (words.size() < first + 4) {
        return {};
    }
    return {signedWord(words[first]), signedWord(words[first + 1]), signedWord(words[first + 2]),
            signedWord(words[first + 3])};
}

Rect X11StatusPlaces::visibleFrame(const Rect& display) const {
    const auto frame = common(display, workArea());
    return frame.width > 0 && frame.height > 0 ? frame : display;
}

} // namespace ambrel
