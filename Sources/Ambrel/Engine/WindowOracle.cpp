#include "Engine/WindowOracle.h"

#include "Platform/Platform.h"
#include "Platform/WindowList.h"

#include <algorithm>

namespace ambrel {

namespace {

constexpr std::size_t maximumDisplays = 16;
constexpr int applicationLayer = 0;
constexpr double alphaLimit = 0.05;
constexpr double minimumSide = 64.0;

bool isWindowOf(ProcessId pid, const WindowInfo& window, const std::vector<Rect>& displays) {
    if (window.ownerPID != pid || window.layer != applicationLayer) {
        return false;
    }
    if (window.alpha && *window.alpha <= alphaLimit) {
        return false;
    }
    // A dialog may be as small as it likes.
    if (!window.bounds || window.kind == WindowKind::dialog) {
        return true;
    }
    if (window.bounds->width < minimumSide || window.bounds->height < minimumSide) {
        return false;
    }
    return std::find(displays.begin(), displays.end(), *window.bounds) == displays.end();
}

} // namespace

WindowOracle& WindowOracle::shared() {
    static auto& oracle = *new WindowOracle(Platform::shared().windowServer());
    return oracle;
}

std::optional<std::ptrdiff_t> WindowOracle::windowCount(ProcessId pid) const {
    const auto windows = windowServer_.onScreenWindows(pid);
    if (!windows) {
        return std::nullopt;
    }
    if (windows->empty()) {
        return 0;
    }
    const auto displays = displayBounds();
    return std::count_if(windows->begin(), windows->end(),
                         [&](const WindowInfo& window) { return isWindowOf(pid, window, displays); });
}

std::vector<Rect> WindowOracle::displayBounds() const {
    return windowServer_.onlineDisplays(maximumDisplays).value_or(std::vector<Rect>());
}

} // namespace ambrel
