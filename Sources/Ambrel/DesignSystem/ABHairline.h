#pragma once

#include <QColor>
#include <QMetaObject>
#include <QPointF>
#include <QQuickItem>

namespace ambrel {

/// A line along the top of this item, or, upright, along its left, of so many pixels of the device, and exactly on
/// them: wherever the item comes to lie, at whatever scale, the line is moved by the part of a pixel that this takes.
class ABHairline : public QQuickItem {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QColor color READ color WRITE setColor NOTIFY colorChanged)
    Q_PROPERTY(int pixels READ pixels WRITE setPixels NOTIFY pixelsChanged)
    Q_PROPERTY(bool upright READ upright WRITE setUpright NOTIFY uprightChanged)

public:
    explicit ABHairline(QQuickItem* parent = nullptr);

    [[nodiscard]] QColor color() const { return color_; }
    [[nodiscard]] int pixels() const { return pixels_; }
    [[nodiscard]] bool upright() const { return upright_; }
    void setColor(const QColor& color);
    void setPixels(int pixels);
    void setUpright(bool upright);

Q_SIGNALS:
    void colorChanged();
    void pixelsChanged();
    void uprightChanged();

protected:
    QSGNode* updatePaintNode(QSGNode* old, UpdatePaintNodeData* data) override;
    void itemChange(ItemChange change, const ItemChangeData& data) override;
    void geometryChange(const QRectF& now, const QRectF& before) override;

private:
    /// From the item's corner to the nearest pixel's.
    [[nodiscard]] QPointF offPixel() const;
    void follow();

    QColor color_ = Qt::black;
    int pixels_ = 1;
    bool upright_ = false;
    QPointF drawnAt_;
    QMetaObject::Connection frames_;
};

} // namespace ambrel
