#pragma once

#include "Platform/Bundle.h"

namespace ambrel {

/// The folder `NAME.app` above an executable that holds an `Info.json` with a text member `identifier`; without one
/// the executable is a bare binary.
class LinuxBundle final : public Bundle {
public:
    explicit LinuxBundle(const std::filesystem::path& executable);
    [[nodiscard]] static LinuxBundle ofThisProcess();

    [[nodiscard]] std::optional<std::string> bundleIdentifier() const override { return identifier_; }
    [[nodiscard]] std::filesystem::path bundleURL() const override { return url_; }
    /// The member `version` of `Info.json`.
    [[nodiscard]] std::optional<std::string> shortVersion() const override { return version_; }

private:
    bool adopt(const std::filesystem::path& folder);

    std::filesystem::path url_;
    std::optional<std::string> identifier_;
    std::optional<std::string> version_;
};

} // namespace ambrel
