#pragma once

#include "Core/Files.h"
#include "Platform/Platform.h"

#include <memory>
#include <variant>

namespace ambrel {

class LinuxApplicationHost;
class X11Connection;

/// The desktop of an X11 session. Made after Qt's application object and destroyed before it.
class LinuxPlatform final : public Platform {
public:
    using Connection = std::variant<std::unique_ptr<X11Connection>, FileFailure>;

    /// Fails where there is no X server to talk to. May be called before there is an application object.
    [[nodiscard]] static Connection connect();
    /// Says once that the server has gone.
    static void logLostServer();
    /// If the server goes later, that is said and the event loop ends with status 1.
    explicit LinuxPlatform(std::unique_ptr<X11Connection> connection);
    LinuxPlatform(const LinuxPlatform&) = delete;
    LinuxPlatform& operator=(const LinuxPlatform&) = delete;
    ~LinuxPlatform() override;

    [[nodiscard]] Workspace& workspace() override;
    [[nodiscard]] WindowList& windowList() override;
    [[nodiscard]] WindowServer& windowServer() override;
    [[nodiscard]] const ProcessActivity& processActivity() const override;
    [[nodiscard]] Occupations& occupations() override;
    [[nodiscard]] UserDefaults& userDefaults() override;
    [[nodiscard]] Bundle& bundle() override;
    [[nodiscard]] FileLocations& fileLocations() override;
    [[nodiscard]] Environment& environment() override;
    [[nodiscard]] ApplicationHost& application() override;
    [[nodiscard]] MainQueue& mainQueue() override;
    [[nodiscard]] BackgroundQueue& backgroundQueue() override;
    [[nodiscard]] Session& session() override;
    [[nodiscard]] HotKeyCenter& hotKeyCenter() override;
    [[nodiscard]] NotificationCenter& notificationCenter() override;
    [[nodiscard]] StatusBar& statusBar() override;
    [[nodiscard]] LoginItem& loginItem() override;
    [[nodiscard]] Updater& updater() override;
    [[nodiscard]] Appearance& appearance() override;
    [[nodiscard]] ClickMonitor& clickMonitor() override;
    [[nodiscard]] Compositor& compositor() override;
    [[nodiscard]] const Clock& wallClock() const override;
    [[nodiscard]] const MonotonicClock& monotonicClock() const override;

    /// For the user interface, which owns the windows that the host speaks of.
    [[nodiscard]] LinuxApplicationHost& applicationHost();

private:
    struct Parts;
    std::unique_ptr<Parts> parts_;
};

} // namespace ambrel
