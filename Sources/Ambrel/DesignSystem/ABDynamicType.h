#pragma once

#include <QObject>
#include <QPointer>
#include <QQuickItem>

namespace ambrel {

/// Attached to an item, bounds the text scale of everything in it: `ABDynamicType.maximum: 1.1`. Reads as `scale` the
/// one that holds for the item.
class ABDynamicType : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("attached to items")
    QML_ATTACHED(ambrel::ABDynamicType)
    Q_PROPERTY(double maximum READ maximum WRITE setMaximum NOTIFY maximumChanged)
    Q_PROPERTY(double scale READ scale NOTIFY scaleChanged)

public:
    explicit ABDynamicType(QObject* item);
    [[nodiscard]] static ABDynamicType* qmlAttachedProperties(QObject* item);

    [[nodiscard]] double maximum() const { return maximum_; }
    [[nodiscard]] double scale() const { return scale_; }
    void setMaximum(double maximum);

Q_SIGNALS:
    void maximumChanged();
    void scaleChanged();

private:
    [[nodiscard]] static ABDynamicType* on(QQuickItem* item);
    static void beFollowedIn(const QQuickItem& item);
    void follow();
    void refresh();

    static constexpr double unbounded = 100;
    QPointer<QQuickItem> item_;
    QPointer<ABDynamicType> outer_;
    QList<QMetaObject::Connection> ancestors_;
    double maximum_ = unbounded;
    double scale_ = 1;
};

} // namespace ambrel
