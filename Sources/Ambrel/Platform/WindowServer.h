#pragma once

#include "Platform/WindowList.h"

#include <cstddef>
#include <optional>
#include <vector>

namespace ambrel {

/// A rectangle in pixels of the whole screen, origin at its upper left.
struct Rect {
    double x = 0;
    double y = 0;
    double width = 0;
    double height = 0;

    bool operator==(const Rect&) const = default;
};

/// One window on the screen, as the window server lists it. An absent field could not be read.
struct WindowInfo {
    std::optional<ProcessId> ownerPID;
    std::optional<int> layer;    ///< 0 is the layer of ordinary windows
    std::optional<double> alpha; ///< 0 transparent to 1 opaque
    std::optional<Rect> bounds;
    std::optional<WindowKind> kind = std::nullopt; ///< as the window itself says; absent where it says nothing
};

class WindowServer {
public:
    virtual ~WindowServer() = default;

    /// The windows on the screen; absent when the list can't be read. Windows that are known to belong to another
    /// process than `owner` may be left out.
    [[nodiscard]] virtual std::optional<std::vector<WindowInfo>> onScreenWindows(ProcessId owner) const = 0;
    /// The bounds of the online displays, at most `limit`; absent when they can't be read.
    [[nodiscard]] virtual std::optional<std::vector<Rect>> onlineDisplays(std::size_t limit) const = 0;
};

} // namespace ambrel
