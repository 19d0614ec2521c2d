#include "DesignSystem/ABSymbol.h"

#include <utility>

#include <QFile>
#include <QPainter>
#include <QPixmapCache>
#include <QSvgRenderer>

namespace ambrel {

namespace {

constexpr int largestPicture = 1024;

QImage render(const QString& name, int pixels, const QColor& color) {
    QImage image(pixels, pixels, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    const auto file = QStringLiteral(":/ambrel/symbols/%1.svg").arg(name);
    if (!QFile::exists(file)) {
        qWarning("no symbol is named %s", qPrintable(name));
        return image;
    }
    QPainter painter(&image);
    QSvgRenderer(file).render(&painter);
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(image.rect(), color);
    return image;
}

} // namespace

ABSymbol::ABSymbol(QQuickItem* parent) : QQuickPaintedItem(parent) {
    setImplicitSize(size_, size_);
}

void ABSymbol::setName(const QString& name) {
    if (std::exchange(name_, name) != name) {
        update();
        Q_EMIT nameChanged();
    }
}

void ABSymbol::setColor(const QColor& color) {
    if (std::exchange(color_, color) != color) {
        update();
        Q_EMIT colorChanged();
    }
}

void ABSymbol::setSize(double size) {
    if (std::exchange(size_, size) != size) {
        setImplicitSize(size, size);
        update();
        Q_EMIT sizeChanged();
    }
}

void ABSymbol::setMirrored(bool mirrored) {
    if (std::exchange(mirrored_, mirrored) != mirrored) {
        update();
        Q_EMIT mirroredChanged();
    }
}

void ABSymbol::paint(QPainter* painter) {
    const double scale = painter->deviceTransform().m11();
    const int pixels = qRound(size_ * scale);
    if (name_.isEmpty() || pixels <= 0 || pixels > largestPicture) {
        return;
    }
    // Whole pixels of the device: a picture drawn between them is a blurred one.
    const QPoint corner(qRound((width() * scale - pixels) / 2), qRound((height() * scale - pixels) / 2));
    painter->resetTransform();
    painter->scale(1 / painter->device()->devicePixelRatio(), 1 / painter->device()->devicePixelRatio());
    painter->drawImage(corner, picture(pixels));
}

QImage ABSymbol::picture(int pixels) const {
    const auto key = QStringLiteral("ABSymbol/%1/%2/%3").arg(name_).arg(pixels).arg(color_.rgba(), 0, 16);
    QPixmap cached;
    if (!QPixmapCache::find(key, &cached)) {
        cached = QPixmap::fromImage(render(name_, pixels, color_));
        QPixmapCache::insert(key, cached);
    }
    return mirrored_ ? cached.toImage().mirrored(true, false) : cached.toImage();
}

} // namespace ambrel
