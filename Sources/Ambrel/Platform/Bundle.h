#pragma once

#include <filesystem>
#include <optional>
#include <string>

namespace ambrel {

/// Who the program is, also where it runs from no bundle.
constexpr const char* productIdentifier = "app.ambrel.Ambrel";

/// What this program was started from.
class Bundle {
public:
    virtual ~Bundle() = default;

    /// Absent for a bare binary.
    [[nodiscard]] virtual std::optional<std::string> bundleIdentifier() const = 0;
    /// The folder with the extension "app", or the executable's own folder for a bare binary.
    [[nodiscard]] virtual std::filesystem::path bundleURL() const = 0;
    /// As people read it; absent where the bundle does not say.
    [[nodiscard]] virtual std::optional<std::string> shortVersion() const = 0;
};

} // namespace ambrel
