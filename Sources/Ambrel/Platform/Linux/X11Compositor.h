#pragma once

#include "Platform/Compositor.h"
#include "Platform/Linux/X11Connection.h"

namespace ambrel {

/// The owner of the screen's compositing selection, and the blur that some window managers offer.
class X11Compositor final : public Compositor {
public:
    /// `connection` must outlive this object.
    explicit X11Compositor(X11Connection& connection) : connection_(connection) {}

    [[nodiscard]] bool isCompositing() const override;
    [[nodiscard]] bool blurBehind(std::uintptr_t window) override;

private:
    [[nodiscard]] xcb_atom_t internedAtom(const std::string& name) const;

    X11Connection& connection_;
};

} // namespace ambrel
