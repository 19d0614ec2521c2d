#pragma once

namespace ambrel {

class LoginItem;

/// Whether the program starts when the user logs in. The truth lies with the desktop; nothing is stored here.
struct LaunchAtLogin {
    LaunchAtLogin() = delete;

    [[nodiscard]] static bool isEnabled(const LoginItem& item);
    /// A failure is logged; ask `isEnabled` what has become of it.
    static void setEnabled(LoginItem& item, bool on);
    /// To be called at start-up: a program that was moved is started from its new place.
    static void followProgram(LoginItem& item);
};

} // namespace ambrel
