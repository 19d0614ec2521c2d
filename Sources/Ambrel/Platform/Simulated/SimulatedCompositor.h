#pragma once

#include "Platform/Compositor.h"

namespace ambrel::simulated {

class SimulatedCompositor final : public Compositor {
public:
    [[nodiscard]] bool isCompositing() const override { return compositing; }
    [[nodiscard]] bool blurBehind(std::uintptr_t /*window*/) override { return blurs; }

    bool compositing = false;
    bool blurs = false;
};

} // namespace ambrel::simulated
