#pragma once

#include "Platform/Linux/ApplicationIdentity.h"
#include "Platform/Linux/DesktopEntries.h"
#include "Platform/Workspace.h"

#include <optional>
#include <string>
#include <vector>

namespace ambrel {

/// Tells which installed application a process is, and the way back. Main thread only.
class ApplicationIdentifier {
public:
    /// A process that no desktop entry stands for has no identifier, unless it is a part of the desktop that is
    /// known by its name.
    [[nodiscard]] ApplicationIdentity identify(ProcessId pid, const WindowIdentityFacts& window);

    [[nodiscard]] std::optional<InstalledApplication> installedApplication(const std::string& bundleIdentifier);
    /// All that menus show.
    [[nodiscard]] std::vector<InstalledApplication> installedApplications();

    /// Starts or activates the application of a desktop entry, without waiting for it. A failure is logged.
    void open(const std::filesystem::path& url);

private:
    [[nodiscard]] InstalledApplication installed(const DesktopEntry& entry);
    [[nodiscard]] std::string identifierOf(const std::string& entryId);
    [[nodiscard]] std::optional<std::string> entryOf(const std::string& bundleIdentifier);
    [[nodiscard]] std::optional<std::string> textEditorEntry();

    DesktopEntries entries_;
};

} // namespace ambrel
