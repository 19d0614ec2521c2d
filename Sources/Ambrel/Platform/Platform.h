#pragma once

namespace ambrel {

class Appearance;
class ApplicationHost;
class BackgroundQueue;
class Bundle;
class ClickMonitor;
class Clock;
class Compositor;
class Environment;
class FileLocations;
class HotKeyCenter;
class LoginItem;
class MainQueue;
class MonotonicClock;
class NotificationCenter;
class Occupations;
class ProcessActivity;
class Session;
class StatusBar;
class Updater;
class UserDefaults;
class WindowList;
class WindowServer;
class Workspace;

/// Everything the program asks of a desktop. Nothing above this seam knows which desktop it has.
class Platform {
public:
    virtual ~Platform() = default;

    [[nodiscard]] virtual Workspace& workspace() = 0;
    [[nodiscard]] virtual WindowList& windowList() = 0;
    [[nodiscard]] virtual WindowServer& windowServer() = 0;
    [[nodiscard]] virtual const ProcessActivity& processActivity() const = 0;
    [[nodiscard]] virtual Occupations& occupations() = 0;
    [[nodiscard]] virtual UserDefaults& userDefaults() = 0;
    [[nodiscard]] virtual Bundle& bundle() = 0;
    [[nodiscard]] virtual FileLocations& fileLocations() = 0;
    [[nodiscard]] virtual Environment& environment() = 0;
    [[nodiscard]] virtual ApplicationHost& application() = 0;
    [[nodiscard]] virtual MainQueue& mainQueue() = 0;
    [[nodiscard]] virtual BackgroundQueue& backgroundQueue() = 0;
    [[nodiscard]] virtual Session& session() = 0;
    [[nodiscard]] virtual HotKeyCenter& hotKeyCenter() = 0;
    [[nodiscard]] virtual NotificationCenter& notificationCenter() = 0;
    [[nodiscard]] virtual StatusBar& statusBar() = 0;
    [[nodiscard]] virtual LoginItem& loginItem() = 0;
    [[nodiscard]] virtual Updater& updater() = 0;
    /// The first question makes it ask the desktop, so that a program that shows nothing asks nothing.
    [[nodiscard]] virtual Appearance& appearance() = 0;
    [[nodiscard]] virtual ClickMonitor& clickMonitor() = 0;
    [[nodiscard]] virtual Compositor& compositor() = 0;
    /// The real date, or the one of the simulated day.
    [[nodiscard]] virtual const Clock& wallClock() const = 0;
    [[nodiscard]] virtual const MonotonicClock& monotonicClock() const = 0;

    /// The process's platform. `main` installs it before anything asks.
    [[nodiscard]] static Platform& shared();
    static void install(Platform& platform);
};

} // namespace ambrel
