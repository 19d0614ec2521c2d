#pragma once

#include "Platform/Linux/IconPaint.h"
#include "Platform/Linux/X11Connection.h"

#include <optional>

namespace ambrel {

/// Draws icons into windows, over what is behind them.
class X11IconPainter {
public:
    /// `connection` must outlive this object.
    explicit X11IconPainter(X11Connection& connection);
    X11IconPainter(const X11IconPainter&) = delete;
    X11IconPainter& operator=(const X11IconPainter&) = delete;
    ~X11IconPainter();

    /// A window of `visual` that shows its parent behind itself, or nothing at all where the visual has an alpha
    /// channel. The visual 0 is that of the screen.
    [[nodiscard]] xcb_window_t makeWindow(xcb_visualid_t visual, int size, std::uint32_t events);
    /// Clears the window and draws the look in its middle. Without the Render extension it stays empty.
    void draw(xcb_window_t window, int width, int height, const IconLook& look, IconColour foreground);
    /// The colour that is behind the window at this point of it; absent where that can't be seen.
    [[nodiscard]] std::optional<IconColour> backgroundAt(int x, int y, xcb_window_t window) const;

private:
    void composite(xcb_window_t window, int x, int y, const IconMask& mask, IconColour colour);

    X11Connection& connection_;
    bool hasRender_;
    xcb_visualid_t visual_ = 0; ///< of the latest window
};

} // namespace ambrel
