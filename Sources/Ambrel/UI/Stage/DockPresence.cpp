#include "UI/Stage/DockPresence.h"

#include "Platform/ApplicationHost.h"
#include "State/AppSettings.h"
#include "UI/Stage/Stage.h"

#include <QQuickView>

namespace ambrel {

void DockPresence::willShowWindow() {
    host_.setActivationPolicy(ActivationPolicy::regular);
}

void DockPresence::follow(QQuickView& window) {
    QObject::connect(&window, &QWindow::visibleChanged, &window, [this](bool visible) {
        if (!visible) {
            windowDidClose();
        }
    });
}

void DockPresence::windowDidClose() {
    if (!stage_.hasVisibleTitledWindow()) {
        restore();
    }
}

void DockPresence::restore() {
    host_.setActivationPolicy(settings_.showDockIcon.get() ? ActivationPolicy::regular : ActivationPolicy::accessory);
}

void DockPresence::bringForward(QQuickView& window) {
    window.setWindowStates(window.windowStates() & ~Qt::WindowMinimized);
    window.show();
    window.raise();
    window.requestActivate();
}

} // namespace ambrel
