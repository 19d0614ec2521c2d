#pragma once

#include "Platform/RunningApplication.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace ambrel {

class Platform;

/// An installed application that the contract's samples can pose as. Every driver has these installed.
struct SampleIdentity {
    const char* bundleIdentifier;
    const char* name;
};
inline constexpr SampleIdentity editor{"org.example.contract.Editor", "Contract Editor"};
inline constexpr SampleIdentity player{"org.example.contract.Player", "Contract Player"};

/// A running sample application, made to act. What a verb causes arrives some time later.
class SampleApplication {
public:
    /// Ends the process if it still runs.
    virtual ~SampleApplication() = default;

    [[nodiscard]] virtual ProcessId pid() const = 0;
    /// Windows are counted from 1, dialogs among them.
    virtual int openWindow() = 0;
    virtual int openDialog() = 0;
    virtual void close(int window) = 0;
    virtual void minimise(int window) = 0;
    virtual void restore(int window) = 0;
    /// Takes the window off the desktop without destroying it, and puts it back.
    virtual void withdraw(int window) = 0;
    virtual void map(int window) = 0;
    /// Undoes `RunningApplication::hide`.
    virtual void show() = 0;
    virtual void refuseToQuit() = 0;
    virtual void crash() = 0;
};

/// A desktop under test, with a hand on what happens on it.
class DesktopDriver {
public:
    virtual ~DesktopDriver() = default;

    [[nodiscard]] virtual Platform& platform() = 0;
    /// Starts a sample with one open window; without an identity, as a program that isn't installed.
    [[nodiscard]] virtual std::unique_ptr<SampleApplication> launch(const std::optional<SampleIdentity>& identity) = 0;

    /// Runs the main queue until `holds` answers true; false if it doesn't within some seconds.
    [[nodiscard]] virtual bool waitUntil(const std::function<bool()>& holds) = 0;
    /// Runs the main queue until everything that the verbs so far cause has arrived.
    virtual void settle() = 0;

    /// Takes away, or gives back, what makes other applications' windows visible to the platform.
    virtual void setReadable(bool readable) = 0;
    // By what the platform listens to.
    virtual void lockScreen(bool locked) = 0;
    virtual void darkenDisplays(bool dark) = 0;
    /// Presses ⌘⌥⇧Q on the keyboard.
    virtual void pressHotKey() = 0;
    /// Before this nobody shows notifications.
    virtual void startNotifications() = 0;
    /// The user acts on the latest notification.
    virtual void useNotification(const std::string& action) = 0;
    /// Absent unsets the variable.
    virtual void setEnvironment(const std::string& name, const std::optional<std::string>& value) = 0;
};

/// The desktop that this program tests; each driver's source file defines it.
[[nodiscard]] std::unique_ptr<DesktopDriver> makeDesktopDriver();

} // namespace ambrel
