#pragma once

#include <QColor>
#include <QQuickPaintedItem>

namespace ambrel {

/// The soft shadow of a rounded shape that lies `blur` inside this item's edges; nothing of it is left at the edges.
class ABShadowPicture : public QQuickPaintedItem {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QColor color READ color WRITE setColor NOTIFY colorChanged)
    Q_PROPERTY(double blur READ blur WRITE setBlur NOTIFY blurChanged)
    Q_PROPERTY(double cornerRadius READ cornerRadius WRITE setCornerRadius NOTIFY cornerRadiusChanged)

public:
    explicit ABShadowPicture(QQuickItem* parent = nullptr);

    [[nodiscard]] QColor color() const { return color_; }
    [[nodiscard]] double blur() const { return blur_; }
    [[nodiscard]] double cornerRadius() const { return cornerRadius_; }
    void setColor(const QColor& color);
    void setBlur(double blur);
    void setCornerRadius(double cornerRadius);

    void paint(QPainter* painter) override;

Q_SIGNALS:
    void colorChanged();
    void blurChanged();
    void cornerRadiusChanged();

private:
    QColor color_ = Qt::black;
    double blur_ = 8;
    double cornerRadius_ = 0;
};

} // namespace ambrel
