#pragma once

#include "Platform/HotKeyCenter.h"

namespace ambrel {

class X11Connection;

/// Key combinations grabbed on the root window.
class X11HotKeyCenter final : public HotKeyCenter {
public:
    /// `connection` must outlive this object.
    explicit X11HotKeyCenter(X11Connection& connection) : connection_(connection) {}

    [[nodiscard]] HotKeyResult registerHotKey(HotKey key, std::function<void()> onPress) override;

private:
    [[maybe_unused]] X11Connection& connection_;
};

} // namespace ambrel
