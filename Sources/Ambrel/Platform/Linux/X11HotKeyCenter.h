#pragma once

#include "Platform/HotKeyCenter.h"

namespace ambrel {

class X11Connection;

/// Key combinations grabbed on the root window.
class X11HotKeyCenter final : public HotKeyCenter {
public:
    /// `connection` must outlive this object and every registration.
    explicit X11HotKeyCenter(X11Connection& connection) : connection_(connection) {}

    /// The status is -9879 where the keyboard has no such combination. It follows later changes of the keyboard map,
    /// and logs where one takes the combination away or brings it back.
    [[nodiscard]] HotKeyResult registerHotKey(HotKey key, std::function<void()> onPress) override;

private:
    X11Connection& connection_;
};

} // namespace ambrel
