#pragma once

#include "Core/Signal.h"
#include "Platform/RunningApplication.h"

#include <functional>
#include <unordered_map>
#include <variant>
#include <vector>

namespace ambrel {

enum class WindowKind {
    standard,
    dialog,
    floating, ///< palettes and torn-off toolbars
    panel,
    desktop,
    overlay, ///< menus, splash screens, tips, notifications, dragged icons
};

/// Whether windows of this kind are windows of an application in its user's eyes.
[[nodiscard]] constexpr bool isApplicationWindow(WindowKind kind) {
    return kind == WindowKind::standard || kind == WindowKind::dialog || kind == WindowKind::floating;
}

/// One window of an application.
struct ApplicationWindow {
    WindowKind kind = WindowKind::standard;
    bool minimized = false;
    bool onDesktop = true; ///< false while its application has withdrawn it and keeps it alive
    bool certain = true;   ///< false where it may be another process's: it counts, and is left alone

    bool operator==(const ApplicationWindow&) const = default;
};

/// Why there is no answer to a question about an application's windows.
enum class Unreadable {
    noWindowManager, ///< nobody publishes the desktop's windows at present
    processGone,
    failed,
};

using WindowsReading = std::variant<std::vector<ApplicationWindow>, Unreadable>;

/// What happens to an application's windows, and to the application as a whole by them.
enum class WindowEvent {
    appeared, ///< new, or back on the desktop
    minimized,
    restored,
    withdrawn, ///< off the desktop, and alive
    vanished,  ///< destroyed
    focused,
    hidden, ///< the application: its user can bring it back, though it has no window on the desktop
    shown,  ///< the application is no longer hidden
};

/// The windows of other applications. Main thread only.
class WindowList {
public:
    using Observer = std::function<void(WindowEvent)>;

    virtual ~WindowList() = default;

    /// False while nobody publishes the desktop's windows; every reading then says so.
    [[nodiscard]] virtual bool isReadable() const = 0;
    /// The windows of this process, withdrawn ones included. Never waits.
    [[nodiscard]] virtual WindowsReading reading(ProcessId pid) const = 0;

    /// Tells of the windows of the process that has this id now, for as long as the subscription lives.
    Subscription observe(ProcessId pid, Observer observer);

    /// The answer of `isReadable` has changed to the given value.
    Signal<bool> readableDidChange;

protected:
    void tell(ProcessId pid, WindowEvent event) const;
    /// The process has ended: a later one with the same id is another.
    void forget(ProcessId pid) { observers_.erase(pid); }

private:
    std::unordered_map<ProcessId, Signal<WindowEvent>> observers_;
};

/// For log lines.
[[nodiscard]] const char* word(WindowKind kind);
[[nodiscard]] const char* word(WindowEvent event);
[[nodiscard]] const char* word(Unreadable reason);

} // namespace ambrel
