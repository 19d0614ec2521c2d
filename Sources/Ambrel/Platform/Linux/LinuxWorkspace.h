#pragma once

#include "Core/Lifetime.h"
#include "Platform/Linux/LinuxApplication.h"
#include "Platform/Workspace.h"

#include <memory>
#include <unordered_map>
#include <vector>

namespace ambrel {

class ApplicationIdentifier;
class LinkOpener;
class ProgramPresence;

/// The applications of the session, as their windows make them known.
class LinuxWorkspace final : public Workspace {
public:
    /// Everything passed must outlive this object.
    LinuxWorkspace(ApplicationServices services, ApplicationIdentifier& identifier, LinkOpener& links,
                   const ProgramPresence& presence, std::optional<std::string> ownIdentifier);

    [[nodiscard]] std::vector<RunningApplicationRef> runningApplications() const override;
    [[nodiscard]] RunningApplicationRef runningApplication(ProcessId pid) const override;
    [[nodiscard]] std::vector<RunningApplicationRef>
    runningApplicationsWithBundleIdentifier(const std::string& bundleIdentifier) const override;
    [[nodiscard]] RunningApplicationRef frontmostApplication() const override { return frontmost_; }
    [[nodiscard]] bool processExists(ProcessId pid) const override;
    [[nodiscard]] ProcessId currentProcessIdentifier() const override;
    [[nodiscard]] std::optional<InstalledApplication>
    installedApplication(const std::string& bundleIdentifier) const override;
    [[nodiscard]] std::vector<InstalledApplication> installedApplications() const override;
    void openApplication(const std::filesystem::path& url) override;
    void openURL(const std::string& url) override;
    void revealFile(const std::filesystem::path& file) override;

    /// A hidden application is shown again.
    Signal<const RunningApplicationRef&> didUnhide;

private:
    using ApplicationRef = std::shared_ptr<LinuxApplication>;
    struct Entry {
        ApplicationRef application;
        Subscription visibility;
    };

    void windowChanged(const WindowChange& change);
    [[nodiscard]] ApplicationRef find(ProcessId pid) const;
    ApplicationRef admit(ProcessId pid, WindowId window);
    void enter(const ApplicationRef& application);
    void welcome(const ApplicationRef& application, const DesktopWindow& window);
    void exited(const ApplicationRef& application);
    void visibilityChanged(const ApplicationRef& application, LinuxApplication::Transition transition);
    void activeChanged();
    void readableChanged(bool readable);
    void trayChanged();

    ApplicationServices services_;
    ApplicationIdentifier& identifier_;
    LinkOpener& links_;
    const ProgramPresence& presence_;
    std::optional<std::string> ownIdentifier_;
    std::vector<ProcessId> order_;
    std::unordered_map<ProcessId, Entry> entries_;
    ApplicationRef frontmost_;
    Lifetime lifetime_;
    std::vector<Subscription> subscriptions_;
};

} // namespace ambrel
