#include "DesignSystem/ABSurface.h"

#include <algorithm>
#include <utility>

#include <QPainter>

namespace ambrel {

namespace {

/// Where a corner begins, and where its handles lie, in radii from the corner of the rectangle. It begins earlier than
/// an arc would, so that the bend grows gradually, and has the arc's depth on the diagonal.
constexpr double cornerReach = 1.4;
constexpr double cornerHandle = 0.3143;

/// Clockwise from the point on one side of `corner` to the one on the next.
void addCorner(QPainterPath& path, QPointF corner, QPointF from, QPointF to) {
    path.lineTo(corner + cornerReach * from);
    path.cubicTo(corner + cornerHandle * from, corner + cornerHandle * to, corner + cornerReach * to);
}

} // namespace

ABSurface::ABSurface(QQuickItem* parent) : QQuickPaintedItem(parent) {
    setAntialiasing(true);
}

void ABSurface::setColor(const QColor& color) {
    if (std::exchange(color_, color) != color) {
        update();
        Q_EMIT colorChanged();
    }
}

void ABSurface::setEdge(const QColor& edge) {
    if (std::exchange(edge_, edge) != edge) {
        update();
        Q_EMIT edgeChanged();
    }
}

void ABSurface::setEdgePixels(int edgePixels) {
    if (std::exchange(edgePixels_, edgePixels) != edgePixels) {
        update();
        Q_EMIT edgePixelsChanged();
    }
}

void ABSurface::setRadius(double radius) {
    if (std::exchange(radius_, radius) != radius) {
        update();
        Q_EMIT radiusChanged();
    }
}

void ABSurface::paint(QPainter* painter) {
    painter->setRenderHint(QPainter::Antialiasing);
    const QRectF bounds(0, 0, width(), height());
    painter->fillPath(shape(bounds, radius_), color_);
    if (edgePixels_ == 0 || edge_.alpha() == 0) {
        return;
    }
    const double line = edgePixels_ / painter->deviceTransform().m11();
    const auto inside = bounds.adjusted(line / 2, line / 2, -line / 2, -line / 2);
    painter->strokePath(shape(inside, std::max(radius_ - line / 2, 0.0)), QPen(edge_, line));
}

QPainterPath ABSurface::shape(const QRectF& bounds, double radius) const {
    QPainterPath path;
    const double half = std::min(bounds.width(), bounds.height()) / 2;
    if (cornerReach * radius > half) {
        path.addRoundedRect(bounds, std::min(radius, half), std::min(radius, half));
        return path;
    }
    const QPointF right(radius, 0);
    const QPointF down(0, radius);
    path.moveTo(bounds.topLeft() + cornerReach * right);
    addCorner(path, bounds.topRight(), -right, down);
    addCorner(path, bounds.bottomRight(), -down, -right);
    addCorner(path, bounds.bottomLeft(), right, -down);
    addCorner(path, bounds.topLeft(), down, right);
    path.closeSubpath();
    return path;
}

} // namespace ambrel
