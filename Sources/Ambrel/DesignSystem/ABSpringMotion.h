#pragma once

#include <QObject>
#include <QtQml/qqmlregistration.h>

namespace ambrel {

/// How a spring moves, as a token names it.
struct ABSpringMotion {
    Q_GADGET
    QML_VALUE_TYPE(abSpringMotion)
    Q_PROPERTY(double response MEMBER response CONSTANT)
    Q_PROPERTY(double dampingFraction MEMBER dampingFraction CONSTANT)

public:
    double response = 0; ///< seconds
    double dampingFraction = 1;

    bool operator==(const ABSpringMotion&) const = default;
};

} // namespace ambrel
