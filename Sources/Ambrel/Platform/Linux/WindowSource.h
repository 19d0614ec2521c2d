#pragma once

#include "Core/Signal.h"
#include "Platform/Linux/ApplicationIdentity.h"
#include "Platform/Linux/QuitRequest.h"
#include "Platform/WindowList.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace ambrel {

/// Names a window while it lives; used again for another one later.
using WindowId = std::uint32_t;

/// An application window by its name.
struct DesktopWindow : ApplicationWindow {
    WindowId id = 0;

    bool operator==(const DesktopWindow&) const = default;
};

/// What a window says of its application, from the moment it was first seen.
struct WindowFacts {
    WindowIdentityFacts identity;
    std::optional<QuitActionAddress> quitAction;
};

/// One of the events that a single window can have: from `appeared` to `vanished`.
struct WindowChange {
    WindowEvent event;
    ProcessId pid;
    DesktopWindow window; ///< as it is now; a vanished one as it was
};

/// Where the desktop's windows come from. Windows of this very process are not among them.
class WindowSource {
public:
    virtual ~WindowSource() = default;

    /// False while nobody publishes the desktop's windows; all answers may then be out of date.
    [[nodiscard]] virtual bool isReadable() const = 0;
    /// The processes that own application windows, in the order they came.
    [[nodiscard]] virtual std::vector<ProcessId> processes() const = 0;
    /// The application windows that are, or may be, of this process; withdrawn ones included. Takes no time
    /// but that of copying them.
    [[nodiscard]] virtual std::vector<DesktopWindow> windows(ProcessId pid) const = 0;
    [[nodiscard]] virtual WindowFacts facts(WindowId window) const = 0;
    /// The process whose window has the focus, a dialog counting as its parent's.
    [[nodiscard]] virtual std::optional<ProcessId> activeProcess() const = 0;
    /// Asks the desktop afresh whether the window is there and belongs to this process.
    [[nodiscard]] virtual bool confirmOwner(WindowId window, ProcessId pid) const = 0;

    /// Asks for the window to be closed as its own close button would.
    virtual void close(WindowId window) = 0;
    virtual void minimize(WindowId window) = 0;

    Signal<const WindowChange&> didChange;
    Signal<> activeDidChange;
    Signal<bool> readableDidChange;
};

} // namespace ambrel
