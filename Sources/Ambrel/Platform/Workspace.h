#pragma once

#include "Core/Signal.h"
#include "Platform/RunningApplication.h"

#include <vector>

namespace ambrel {

/// An installed application.
struct InstalledApplication {
    std::filesystem::path url; ///< what `openApplication` takes
    std::string displayName;   ///< in the user's language
    std::string bundleIdentifier = {};
    std::string icon = {}; ///< a name in the desktop's icon theme, or a path; may be empty
};

/// The running and installed applications of the user's session.
class Workspace {
public:
    virtual ~Workspace() = default;

    /// All applications, also those that aren't regular, in the order they came.
    [[nodiscard]] virtual std::vector<RunningApplicationRef> runningApplications() const = 0;
    /// Null when no application has this process id.
    [[nodiscard]] virtual RunningApplicationRef runningApplication(ProcessId pid) const = 0;
    /// Also finds other copies of this very program, which own no window.
    [[nodiscard]] virtual std::vector<RunningApplicationRef>
    runningApplicationsWithBundleIdentifier(const std::string& bundleIdentifier) const = 0;
    /// The application whose window has the focus; null when there is none.
    [[nodiscard]] virtual RunningApplicationRef frontmostApplication() const = 0;
    /// A process of this id exists and has not ended, whoever's it is. May be called on any thread.
    [[nodiscard]] virtual bool processExists(ProcessId pid) const = 0;
    /// This process.
    [[nodiscard]] virtual ProcessId currentProcessIdentifier() const = 0;

    [[nodiscard]] virtual std::optional<InstalledApplication>
    installedApplication(const std::string& bundleIdentifier) const = 0;
    /// All that menus show, in no order.
    [[nodiscard]] virtual std::vector<InstalledApplication> installedApplications() const = 0;

    /// Starts or activates an application by its `url`. Nothing is reported back.
    virtual void openApplication(const std::filesystem::path& url) = 0;
    /// Opens a link with what the user has for it. The link to the settings of window access opens what this desktop
    /// has for its window manager. Nothing is waited for or reported back.
    virtual void openURL(const std::string& url) = 0;
    /// Shows a file in the file manager, selected where it can do that. Nothing is waited for or reported back.
    virtual void revealFile(const std::filesystem::path& file) = 0;

    Signal<const RunningApplicationRef&> didLaunch;
    Signal<const RunningApplicationRef&> didTerminate;
    Signal<const RunningApplicationRef&> didHide;
    Signal<const RunningApplicationRef&> didActivate;
    Signal<const RunningApplicationRef&> didDeactivate;
};

} // namespace ambrel
