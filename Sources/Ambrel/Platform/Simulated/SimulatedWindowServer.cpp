#include "Platform/Simulated/SimulatedWindowServer.h"

#include "Platform/Simulated/SimulatedWorkspace.h"

#include <algorithm>

namespace ambrel::simulated {

namespace {

WindowInfo listed(ProcessId owner, const SimulatedWindow& window) {
    WindowInfo info{owner, window.layer, window.alpha, window.frame, window.kind};
    if (window.unreadable.owner) {
        info.ownerPID.reset();
    }
    if (window.unreadable.layer) {
        info.layer.reset();
    }
    if (window.unreadable.alpha) {
        info.alpha.reset();
    }
    if (window.unreadable.bounds) {
        info.bounds.reset();
    }
    return info;
}

} // namespace

std::optional<std::vector<WindowInfo>> SimulatedWindowServer::onScreenWindows(ProcessId /*owner*/) const {
    if (listUnreadable) {
        return std::nullopt;
    }
    auto windows = residue;
    for (const auto& app : workspace_.applications()) {
        for (const auto& window : app->windows()) {
            if (app->isOnScreen(window)) {
                windows.push_back(listed(app->processIdentifier(), window));
            }
        }
    }
    return windows;
}

std::optional<std::vector<Rect>> SimulatedWindowServer::onlineDisplays(std::size_t limit) const {
    auto online = displays;
    if (online && online->size() > limit) {
        online->resize(limit);
    }
    return online;
}

} // namespace ambrel::simulated
