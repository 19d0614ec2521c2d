#pragma once

#include "Core/Logger.h"
#include "Platform/Accessibility.h"

namespace ambrel {

/// Asks the desktop to let this program see other applications' windows.
struct AccessibilityGate {
    AccessibilityGate() = delete;

    /// Shows the desktop's own prompt where it has one, and returns whether the program is trusted.
    static bool promptForTrust(Accessibility& accessibility) {
        const bool trusted = accessibility.promptForTrust();
        Logger("axgate").notice("AXIsProcessTrustedWithOptions -> {}", trusted);
        return trusted;
    }
};

} // namespace ambrel
