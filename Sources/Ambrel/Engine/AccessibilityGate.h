#pragma once

#include "Core/Logger.h"
#include "Platform/Accessibility.h"

namespace ambrel {

/// Asks the desktop to let this program see other applications' windows.
struct AccessibilityGate {
    AccessibilityGate() = delete;

    /// What `Workspace::openURL` takes to show the settings in which trust is given.
    static constexpr const char* settingsLink =
        "x-apple.systempreferences:com.apple.preference.security?Privacy_Accessibility";

    /// Shows the desktop's own prompt where it has one, and returns whether the program is trusted.
    static bool promptForTrust(Accessibility& accessibility) {
        const bool trusted = accessibility.promptForTrust();
        Logger("axgate").notice("AXIsProcessTrustedWithOptions -> {}", trusted);
        return trusted;
    }
};

} // namespace ambrel
