#pragma once

class QQuickView;

namespace ambrel {

class AppSettings;
class ApplicationHost;
class Stage;

/// The program's place in the task bar: it has one while a window with a title is up, and else as the user has chosen.
class DockPresence {
public:
    DockPresence(ApplicationHost& host, const AppSettings& settings, const Stage& stage)
        : host_(host), settings_(settings), stage_(stage) {}

    void willShowWindow();
    /// Puts the place in the task bar back when `window` has closed as the last one.
    void follow(QQuickView& window);
    /// Puts it back at once, whatever is open.
    void restore();
    /// Shows `window` in front, with the keyboard.
    static void bringForward(QQuickView& window);

private:
    void windowDidClose();

    ApplicationHost& host_;
    const AppSettings& settings_;
    const Stage& stage_;
};

} // namespace ambrel
