#pragma once

#include <functional>
#include <memory>

#include <QColor>
#include <QImage>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickWindow>
#include <QString>

namespace ambrel {

/// A real window, off the screen, on which one QML object stands.
class Stage {
public:
    /// `qml` is the text of a file that imports the design system already; what it says of errors ends up in `errors`.
    explicit Stage(const QString& qml, QSize size = {400, 300});

    [[nodiscard]] QQuickWindow& window() { return window_; }
    /// The outermost item, or the one of this object name.
    [[nodiscard]] QQuickItem* item(const QString& name = {}) const;
    /// The window's picture, in pixels of the device.
    [[nodiscard]] QImage picture();
    /// Of the pixel at a place in the window's own units.
    [[nodiscard]] QColor colorAt(double x, double y);
    void click(const QString& name);
    void press(Qt::Key key, const QString& text = {});

    QString errors;

private:
    QQmlEngine engine_;
    QQuickWindow window_;
    std::unique_ptr<QObject> root_;
};

} // namespace ambrel
