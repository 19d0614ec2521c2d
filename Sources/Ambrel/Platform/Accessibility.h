#pragma once

#include "Core/Signal.h"
#include "Platform/RunningApplication.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace ambrel {

/// Result codes of accessibility requests. Any other value is a failure without a meaning of its own.
enum class AXError : std::int32_t {
    success = 0,
    failure = -25200,
    cannotComplete = -25204, ///< the application's windows can't be read; whoever watches it starts anew
    notificationAlreadyRegistered = -25209,
    noValue = -25212, ///< there is nothing to read, as in a process that has ended
};

/// One window of an application. An absent attribute could not be read, or is of another type.
struct WindowElement {
    std::optional<std::string> role;    ///< "AXWindow"
    std::optional<std::string> subrole; ///< "AXStandardWindow", "AXDialog", …
    std::optional<bool> minimized;
};

/// The answer to one read of an application's "AXWindows".
struct WindowsReading {
    AXError code = AXError::success;
    /// Absent where the code isn't success, or the value is missing or not a list of elements.
    std::optional<std::vector<WindowElement>> windows;
};

/// The root element of one process.
class ApplicationElement {
public:
    virtual ~ApplicationElement() = default;
    [[nodiscard]] virtual WindowsReading copyWindows() const = 0;
};

/// A source of one process's window events, by notification name. Stops when it is destroyed.
class AccessibilityObserver {
public:
    virtual ~AccessibilityObserver() = default;
    virtual AXError addNotification(std::string_view name) = 0;
    virtual void removeNotification(std::string_view name) = 0;
};

/// Called on the main thread with the name of a notification.
using AccessibilityCallback = std::function<void(const std::string& name)>;

struct ObserverCreation {
    AXError code = AXError::success;
    std::unique_ptr<AccessibilityObserver> observer; ///< null unless the code is success
};

/// What can be known of other applications' windows.
class Accessibility {
public:
    virtual ~Accessibility() = default;

    /// The desktop lets this process see the windows of other applications.
    [[nodiscard]] virtual bool isProcessTrusted() const = 0;
    /// The same answer, after the desktop was asked to show its own prompt where it has one.
    virtual bool promptForTrust() = 0;
    /// The longest time that one request may take; for the whole process.
    virtual void setMessagingTimeout(Seconds timeout) = 0;

    [[nodiscard]] virtual std::unique_ptr<ApplicationElement> createApplication(ProcessId pid) = 0;
    [[nodiscard]] virtual ObserverCreation createObserver(ProcessId pid, AccessibilityCallback callback) = 0;

    /// The answer of `isProcessTrusted` has changed to the given value.
    Signal<bool> trustDidChange;
};

} // namespace ambrel
