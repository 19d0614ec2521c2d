#pragma once

#include <filesystem>

namespace ambrel {

/// The folders that the user's files live in. They need not exist yet.
class FileLocations {
public:
    virtual ~FileLocations() = default;

    /// Settings and rules live in a folder `Ambrel` in here.
    [[nodiscard]] virtual std::filesystem::path applicationSupport() const = 0;
    /// Logs live in a folder `Ambrel` in here.
    [[nodiscard]] virtual std::filesystem::path logs() const = 0;
};

} // namespace ambrel
