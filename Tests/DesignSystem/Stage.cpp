#include "DesignSystem/Stage.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QQmlComponent>

namespace ambrel {

Stage::Stage(const QString& qml, QSize size) {
    QQmlComponent component(&engine_);
    component.setData(("import QtQuick\nimport Ambrel.DesignSystem\n" + qml).toUtf8(), {});
    root_.reset(component.create());
    errors = component.errorString();
    window_.resize(size);
    if (auto* const root = item()) {
        root->setParentItem(window_.contentItem());
        root->setSize(size);
    }
    window_.show();
    window_.requestActivate();
    QCoreApplication::processEvents();
}

QQuickItem* Stage::item(const QString& name) const {
    return qobject_cast<QQuickItem*>(name.isEmpty() || !root_ ? root_.get() : root_->findChild<QObject*>(name));
}

QImage Stage::picture() {
    QCoreApplication::processEvents();
    return window_.grabWindow();
}

QColor Stage::colorAt(double x, double y) {
    const double scale = window_.effectiveDevicePixelRatio();
    return picture().pixelColor(static_cast<int>(x * scale), static_cast<int>(y * scale));
}

void Stage::click(const QString& name) {
    auto* const target = item(name);
    const auto middle = target->mapToScene({target->width() / 2, target->height() / 2});
    for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
        const bool down = type == QEvent::MouseButtonPress;
        QMouseEvent event(type, middle, middle, Qt::LeftButton, down ? Qt::LeftButton : Qt::NoButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&window_, &event);
    }
}

void Stage::press(Qt::Key key, const QString& text) {
    for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QKeyEvent event(type, key, Qt::NoModifier, text);
        QCoreApplication::sendEvent(&window_, &event);
    }
}

} // namespace ambrel
