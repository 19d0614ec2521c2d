#pragma once

#include "Platform/Bundle.h"

namespace ambrel::simulated {

class SimulatedBundle final : public Bundle {
public:
    explicit SimulatedBundle(std::filesystem::path folder) : url(std::move(folder)) {}

    [[nodiscard]] std::optional<std::string> bundleIdentifier() const override { return identifier; }
    [[nodiscard]] std::filesystem::path bundleURL() const override { return url; }
    [[nodiscard]] std::optional<std::string> shortVersion() const override { return version; }

    std::optional<std::string> identifier = "app.ambrel.Ambrel"; ///< absent makes it a bare binary
    std::filesystem::path url;
    std::optional<std::string> version = "4.2";
};

} // namespace ambrel::simulated
