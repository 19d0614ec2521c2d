#pragma once

#include "Platform/FileLocations.h"

namespace ambrel::simulated {

class SimulatedFileLocations final : public FileLocations {
public:
    explicit SimulatedFileLocations(std::filesystem::path home) : home_(std::move(home)) {}

    [[nodiscard]] std::filesystem::path applicationSupport() const override { return home_ / "config"; }
    [[nodiscard]] std::filesystem::path logs() const override { return home_ / "state"; }

private:
    std::filesystem::path home_;
};

} // namespace ambrel::simulated
