#pragma once

#include <QColor>
#include <QImage>
#include <QQuickPaintedItem>

namespace ambrel {

/// One symbol of the artwork, drawn in one colour and sharp at any scale. A name without a picture draws nothing and is
/// told on the console.
class ABSymbol : public QQuickPaintedItem {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QString name READ name WRITE setName NOTIFY nameChanged)
    Q_PROPERTY(QColor color READ color WRITE setColor NOTIFY colorChanged)
    Q_PROPERTY(double size READ size WRITE setSize NOTIFY sizeChanged)
    Q_PROPERTY(bool mirrored READ mirrored WRITE setMirrored NOTIFY mirroredChanged)

public:
    explicit ABSymbol(QQuickItem* parent = nullptr);

    [[nodiscard]] QString name() const { return name_; }
    [[nodiscard]] QColor color() const { return color_; }
    /// The side of the square that it is drawn in, in the middle of the item.
    [[nodiscard]] double size() const { return size_; }
    /// For the symbols that point somewhere, where one reads from the right.
    [[nodiscard]] bool mirrored() const { return mirrored_; }
    void setName(const QString& name);
    void setColor(const QColor& color);
    void setSize(double size);
    void setMirrored(bool mirrored);

    void paint(QPainter* painter) override;

Q_SIGNALS:
    void nameChanged();
    void colorChanged();
    void sizeChanged();
    void mirroredChanged();

private:
    [[nodiscard]] QImage picture(int pixels) const;

    QString name_;
    QColor color_ = Qt::black;
    double size_ = 16;
    bool mirrored_ = false;
};

} // namespace ambrel
