#pragma once

#include <QColor>
#include <QPainterPath>
#include <QQuickPaintedItem>

namespace ambrel {

/// A filled shape with smooth corners and a border along its inside, counted in pixels of the device.
class ABSurface : public QQuickPaintedItem {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QColor color READ color WRITE setColor NOTIFY colorChanged)
    Q_PROPERTY(QColor edge READ edge WRITE setEdge NOTIFY edgeChanged)
    Q_PROPERTY(int edgePixels READ edgePixels WRITE setEdgePixels NOTIFY edgePixelsChanged)
    Q_PROPERTY(double radius READ radius WRITE setRadius NOTIFY radiusChanged)

public:
    explicit ABSurface(QQuickItem* parent = nullptr);

    [[nodiscard]] QColor color() const { return color_; }
    [[nodiscard]] QColor edge() const { return edge_; }
    [[nodiscard]] int edgePixels() const { return edgePixels_; }
    /// Half of the shorter side, or more, makes a capsule or a circle.
    [[nodiscard]] double radius() const { return radius_; }
    void setColor(const QColor& color);
    void setEdge(const QColor& edge);
    void setEdgePixels(int edgePixels);
    void setRadius(double radius);

    void paint(QPainter* painter) override;

Q_SIGNALS:
    void colorChanged();
    void edgeChanged();
    void edgePixelsChanged();
    void radiusChanged();

private:
    [[nodiscard]] QPainterPath shape(const QRectF& bounds, double radius) const;

    QColor color_ = Qt::transparent;
    QColor edge_ = Qt::transparent;
    int edgePixels_ = 0;
    double radius_ = 0;
};

} // namespace ambrel
