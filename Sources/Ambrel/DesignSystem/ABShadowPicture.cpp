#include "DesignSystem/ABShadowPicture.h"

#include "DesignSystem/BlurredShape.h"

#include <utility>

#include <QPainter>

namespace ambrel {

ABShadowPicture::ABShadowPicture(QQuickItem* parent) : QQuickPaintedItem(parent) {}

void ABShadowPicture::setColor(const QColor& color) {
    if (std::exchange(color_, color) != color) {
        update();
        Q_EMIT colorChanged();
    }
}

void ABShadowPicture::setBlur(double blur) {
    if (std::exchange(blur_, blur) != blur) {
        update();
        Q_EMIT blurChanged();
    }
}

void ABShadowPicture::setCornerRadius(double cornerRadius) {
    if (std::exchange(cornerRadius_, cornerRadius) != cornerRadius) {
        update();
        Q_EMIT cornerRadiusChanged();
    }
}

void ABShadowPicture::paint(QPainter* painter) {
    const double scale = painter->deviceTransform().m11();
    const auto size = (QSizeF(width(), height()) * scale).toSize();
    if (size.isEmpty()) {
        return;
    }
    const auto shape = blurredShape(size, qRound(blur_ * scale), cornerRadius_ * scale);
    QImage tinted(size, QImage::Format_ARGB32_Premultiplied);
    tinted.fill(color_);
    QPainter tinting(&tinted);
    tinting.setCompositionMode(QPainter::CompositionMode_DestinationIn);
    tinting.drawImage(0, 0, shape);
    tinting.end();
    painter->drawImage(QRectF(0, 0, width(), height()), tinted);
}

} // namespace ambrel
