#pragma once

#include "Platform/StatusBar.h"

#include <functional>

namespace ambrel {

/// Everything of the program that has a window, behind one door: nothing of it is loaded before it is first opened.
class Windows {
public:
    virtual ~Windows() = default;

    /// What the rows of the dropdown do.
    struct DropdownActions {
        std::function<void()> togglePause, quitAll, runningApps, openSettings, quitApp;
    };
    virtual void showDropdown(const StatusItemPlace& place, DropdownActions actions) = 0;
    virtual void dismissDropdown() = 0;
    [[nodiscard]] virtual bool isDropdownVisible() const = 0;

    struct QuitAllQuestion {
        int count;
        bool force;
        std::function<void()> onConfirm, onCancel;
    };
    virtual void confirmQuitAll(const StatusItemPlace& place, QuitAllQuestion question) = 0;

    virtual void showSettings() = 0;
    virtual void showRunningApps() = 0;
    virtual void presentOnboarding(std::function<void()> onFinish) = 0;

    struct GateActions {
        std::function<void()> openSettings;
        std::function<void()> onClose; ///< the user closed it
    };
    /// Says that the program may not see windows, until it is dismissed or closed.
    virtual void presentGate(GateActions actions) = 0;
    virtual void dismissGate() = 0;

    /// A window with a title is up.
    [[nodiscard]] virtual bool hasVisibleTitledWindow() const = 0;

    [[nodiscard]] static Windows& shared();
};

} // namespace ambrel
