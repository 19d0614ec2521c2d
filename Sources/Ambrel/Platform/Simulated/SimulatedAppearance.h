#pragma once

#include "Platform/Appearance.h"

#include <utility>

namespace ambrel::simulated {

/// Looks that are what a test says they are.
class SimulatedAppearance final : public Appearance {
public:
    [[nodiscard]] AppearanceFacts current() const override { return facts_; }

    void become(const AppearanceFacts& facts) {
        if (std::exchange(facts_, facts) != facts) {
            didChange.emit();
        }
    }

private:
    AppearanceFacts facts_;
};

} // namespace ambrel::simulated
