#pragma once

#include "Core/Logger.h"
#include "Platform/WindowList.h"

namespace ambrel {

/// What lets this program see other applications' windows.
struct AccessibilityGate {
    AccessibilityGate() = delete;

    /// What `Workspace::openURL` takes to show the settings in which trust is given.
    static constexpr const char* settingsLink =
        "x-apple.systempreferences:com.apple.preference.security?Privacy_Accessibility";

    /// Says in the log whether the program may see windows, and returns it. The desktop has no prompt of its own.
    static bool promptForTrust(const WindowList& windows) {
        const bool trusted = windows.isReadable();
        Logger("axgate").notice("AXIsProcessTrustedWithOptions -> {}", trusted);
        return trusted;
    }
};

} // namespace ambrel
