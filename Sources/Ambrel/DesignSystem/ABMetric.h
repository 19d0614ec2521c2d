#pragma once

#include <QObject>
#include <QtQml/qqmlregistration.h>

namespace ambrel {

/// The measures that views share. Everything else lies on the grid.
class ABMetric : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    Q_PROPERTY(int grid MEMBER grid CONSTANT)
    Q_PROPERTY(int panelRadius MEMBER panelRadius CONSTANT)
    Q_PROPERTY(int cardRadius MEMBER cardRadius CONSTANT)
    Q_PROPERTY(int controlRadius MEMBER controlRadius CONSTANT)
    Q_PROPERTY(int hoverRadius MEMBER hoverRadius CONSTANT)
    Q_PROPERTY(int target MEMBER target CONSTANT)
    Q_PROPERTY(int largeControl MEMBER largeControl CONSTANT)
    Q_PROPERTY(int focusRing MEMBER focusRing CONSTANT)
    Q_PROPERTY(int focusGap MEMBER focusGap CONSTANT)

public:
    using QObject::QObject;

    static constexpr int grid = 4;
    static constexpr int panelRadius = 16;
    static constexpr int cardRadius = 12;
    static constexpr int controlRadius = 8;
    static constexpr int hoverRadius = 8;
    static constexpr int target = 28; ///< the least that a pointer has to hit
    static constexpr int largeControl = 36;
    static constexpr int focusRing = 2;
    static constexpr int focusGap = 2;
};

} // namespace ambrel
