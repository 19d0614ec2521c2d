#pragma once

#include <cstdint>

namespace ambrel {

/// What becomes of a window's translucent parts.
class Compositor {
public:
    virtual ~Compositor() = default;

    /// Translucent parts show what is behind the window. Else they show nothing useful.
    [[nodiscard]] virtual bool isCompositing() const = 0;
    /// Asks for a blur of what is behind `window`, the desktop's own number of it. False where nothing blurs.
    [[nodiscard]] virtual bool blurBehind(std::uintptr_t window) = 0;
};

} // namespace ambrel
