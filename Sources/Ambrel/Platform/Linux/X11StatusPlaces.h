#pragma once

#include "Platform/StatusBar.h"

#include <vector>

namespace ambrel {

class X11Connection;

/// Where on the screen a status item is, or may be taken to be.
class X11StatusPlaces {
public:
    /// The side of an item whose size nobody tells.
    static constexpr double usualSize = 22;

    /// Both must outlive this object.
    X11StatusPlaces(X11Connection& connection, const WindowServer& windowServer)
        : connection_(connection), windowServer_(windowServer) {}

    [[nodiscard]] StatusItemPlace ofButton(Rect button) const;
    /// Around the point of a click; where that is (0, 0), as some trays say that don't know, around the pointer.
    [[nodiscard]] StatusItemPlace ofClick(int x, int y) const;
    /// The end of the panel on the display with the pointer, where most trays are.
    [[nodiscard]] StatusItemPlace likely() const;

private:
    struct Point {
        double x = 0;
        double y = 0;
    };

    [[nodiscard]] Point pointer() const;
    [[nodiscard]] Rect displayAt(Point point) const;
    [[nodiscard]] Rect workArea() const;
    /// The part of a display that windows may use.
    [[nodiscard]] Rect visibleFrame(const Rect& display) const;

    X11Connection& connection_;
    const WindowServer& windowServer_;
};

} // namespace ambrel
