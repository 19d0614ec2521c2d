#pragma once

#include <QObject>
#include <QtQml/qqmlregistration.h>

namespace ambrel {

/// Switches for drawing off the screen, false in normal running. Written before any view exists, and not after.
class ABRenderConfig : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    Q_PROPERTY(bool isSnapshot MEMBER isSnapshot CONSTANT)
    Q_PROPERTY(bool captureMode MEMBER captureMode CONSTANT)
    Q_PROPERTY(bool forceMaterialFallback MEMBER forceMaterialFallback CONSTANT)
    Q_PROPERTY(bool drawsPictures READ drawsPictures CONSTANT)

public:
    using QObject::QObject;

    static inline bool isSnapshot = false;            ///< for a picture: no live system state is read
    static inline bool captureMode = false;           ///< controls draw in their picture-safe form
    static inline bool forceMaterialFallback = false; ///< no glass even where there is some
    /// Controls have to stand still and be drawn without help of the desktop.
    [[nodiscard]] static bool drawsPictures() { return isSnapshot || captureMode; }
};

} // namespace ambrel
