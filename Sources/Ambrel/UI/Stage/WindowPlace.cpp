#include "UI/Stage/WindowPlace.h"

#include <QWindow>

namespace ambrel {

void WindowPlace::follow(QWindow& window) {
    if (place_) {
        window.setPosition(*place_);
    }
    const auto remember = [this, &window] {
        // One that is hidden may read as being anywhere.
        if (window.isVisible()) {
            place_ = window.position();
        }
    };
    QObject::connect(&window, &QWindow::xChanged, &window, remember);
    QObject::connect(&window, &QWindow::yChanged, &window, remember);
}

} // namespace ambrel
