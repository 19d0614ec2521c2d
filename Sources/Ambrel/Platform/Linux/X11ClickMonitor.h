#pragma once

#include "Platform/ClickMonitor.h"
#include "Platform/Linux/X11Connection.h"

#include <cstdint>

namespace ambrel {

/// Raw presses of the X Input extension, which reach us through every grab. They are asked for only while somebody
/// watches: each would wake the process.
class X11ClickMonitor final : public ClickMonitor {
public:
    /// `connection` must outlive this object and every subscription.
    explicit X11ClickMonitor(X11Connection& connection) : connection_(connection) {}

    [[nodiscard]] Subscription watch(std::function<void(double x, double y)> onPress) override;

private:
    [[nodiscard]] bool findExtension();
    void select(std::uint32_t mask);
    void handle(const xcb_generic_event_t& event);

    X11Connection& connection_;
    std::uint8_t extension_ = 0; ///< 0 while it has not been found
    Signal<double, double> pressed_;
    Subscription events_;
};

} // namespace ambrel
