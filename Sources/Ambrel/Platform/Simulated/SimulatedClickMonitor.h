#pragma once

#include "Platform/ClickMonitor.h"

namespace ambrel::simulated {

class SimulatedClickMonitor final : public ClickMonitor {
public:
    [[nodiscard]] Subscription watch(std::function<void(double x, double y)> onPress) override {
        return pressed.subscribe(std::move(onPress));
    }

    /// Emit to press a button there.
    Signal<double, double> pressed;
};

} // namespace ambrel::simulated
