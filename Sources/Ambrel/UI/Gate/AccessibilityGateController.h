#pragma once

#include "Core/Signal.h"
#include "UI/Windows.h"

#include <memory>

#include <QSize>

class QQuickView;

namespace ambrel {

class Compositor;
class DockPresence;
class GatePermission;
class Stage;
class WindowList;

/// The window that says what is missing while Ambrel may not see windows.
class AccessibilityGateController {
public:
    struct Neighbours {
        Stage& stage;
        Compositor& compositor;
        DockPresence& dock;
        WindowList& windows;
    };

    /// Of the window's content.
    static constexpr QSize size{400, 240};

    explicit AccessibilityGateController(Neighbours neighbours);
    AccessibilityGateController(const AccessibilityGateController&) = delete;
    AccessibilityGateController& operator=(const AccessibilityGateController&) = delete;
    ~AccessibilityGateController();

    void present(Windows::GateActions actions);
    /// Without a word to `onClose`.
    void dismiss();

private:
    void makeWindow();
    void windowDidClose();
    void letGo();

    Neighbours neighbours_;
    Windows::GateActions actions_;
    std::unique_ptr<GatePermission> permission_;
    std::unique_ptr<QQuickView> window_;
    bool isPresented_ = false;
    Subscription lettingGo_;
};

} // namespace ambrel
