#pragma once

#include <QObject>
#include <QVariantList>
#include <QtQml/qqmlregistration.h>

namespace ambrel {

/// A change that takes a known time, as a token names it.
struct ABTimedMotion {
    Q_GADGET
    QML_VALUE_TYPE(abTimedMotion)
    Q_PROPERTY(int duration MEMBER duration CONSTANT)
    Q_PROPERTY(QVariantList curve MEMBER curve CONSTANT)

public:
    int duration = 0;   ///< milliseconds
    QVariantList curve; ///< of a Bézier easing

    bool operator==(const ABTimedMotion&) const = default;
};

} // namespace ambrel
