#pragma once

#include "Platform/FileLocations.h"

#include <string>

namespace ambrel {

class Environment;

/// The user's folders by the XDG Base Directory rules.
class XdgFileLocations final : public FileLocations {
public:
    /// `environment` must outlive this object.
    explicit XdgFileLocations(const Environment& environment) : environment_(environment) {}

    [[nodiscard]] std::filesystem::path applicationSupport() const override;
    [[nodiscard]] std::filesystem::path logs() const override;

private:
    [[nodiscard]] std::filesystem::path folder(const std::string& variable, const char* belowHome) const;
    [[nodiscard]] std::filesystem::path home() const;

    const Environment& environment_;
};

} // namespace ambrel
