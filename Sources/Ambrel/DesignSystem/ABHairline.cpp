#include "DesignSystem/ABHairline.h"

#include <utility>

#include <QQuickWindow>
#include <QSGRectangleNode>

namespace ambrel {

namespace {

/// Of a pixel: a rectangle that touches the next one only by rounding would be drawn on it too.
constexpr double margin = 0.05;

} // namespace

ABHairline::ABHairline(QQuickItem* parent) : QQuickItem(parent) {
    setFlag(ItemHasContents);
}

void ABHairline::setColor(const QColor& color) {
    if (std::exchange(color_, color) != color) {
        update();
        Q_EMIT colorChanged();
    }
}

void ABHairline::setPixels(int pixels) {
    if (std::exchange(pixels_, pixels) != pixels) {
        update();
        Q_EMIT pixelsChanged();
    }
}

void ABHairline::setUpright(bool upright) {
    if (std::exchange(upright_, upright) != upright) {
        update();
        Q_EMIT uprightChanged();
    }
}

QSGNode* ABHairline::updatePaintNode(QSGNode* old, UpdatePaintNodeData*) {
    auto* const node = old != nullptr ? static_cast<QSGRectangleNode*>(old) : window()->createRectangleNode();
    const double pixel = 1 / window()->effectiveDevicePixelRatio();
    const double thickness = (pixels_ - 2 * margin) * pixel;
    drawnAt_ = offPixel();
    const QPointF corner = drawnAt_ + QPointF(margin, margin) * pixel;
    node->setRect(QRectF(corner, upright_ ? QSizeF(thickness, height() - 2 * margin * pixel)
                                          : QSizeF(width() - 2 * margin * pixel, thickness)));
    node->setColor(color_);
    return node;
}

QPointF ABHairline::offPixel() const {
    const double scale = window()->effectiveDevicePixelRatio();
    const auto exact = mapToScene({0, 0}) * scale;
    return (QPointF(exact.toPoint()) - exact) / scale;
}

/// Nobody tells an item that one further out has moved: ask before each frame that is drawn anyway.
void ABHairline::itemChange(ItemChange change, const ItemChangeData& data) {
    if (change == ItemSceneChange) {
        disconnect(frames_);
        if (data.window != nullptr) {
            frames_ = connect(data.window, &QQuickWindow::afterAnimating, this, &ABHairline::follow);
        }
    }
    QQuickItem::itemChange(change, data);
}

void ABHairline::follow() {
    if (isVisible() && offPixel() != drawnAt_) {
        update();
    }
}

void ABHairline::geometryChange(const QRectF& now, const QRectF& before) {
    QQuickItem::geometryChange(now, before);
    update();
}

} // namespace ambrel
