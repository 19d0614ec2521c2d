#pragma once

#include <QObject>
#include <QtQml/qqmlregistration.h>

class QJSEngine;
class QQmlEngine;

namespace ambrel {

/// How the desktop wants things to look. One for the process: its owner feeds it, every view adapts at once.
class ABAppearance : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    Q_PROPERTY(bool dark READ dark WRITE setDark NOTIFY darkChanged)
    Q_PROPERTY(bool highContrast READ highContrast WRITE setHighContrast NOTIFY highContrastChanged)
    Q_PROPERTY(bool reducedMotion READ reducedMotion WRITE setReducedMotion NOTIFY reducedMotionChanged)
    Q_PROPERTY(double textScale READ textScale WRITE setTextScale NOTIFY textScaleChanged)

public:
    [[nodiscard]] static ABAppearance& shared();
    /// For the engine, which doesn't own it.
    [[nodiscard]] static ABAppearance* create(QQmlEngine*, QJSEngine*);

    [[nodiscard]] bool dark() const { return dark_; }
    [[nodiscard]] bool highContrast() const { return highContrast_; }
    [[nodiscard]] bool reducedMotion() const { return reducedMotion_; }
    [[nodiscard]] double textScale() const { return textScale_; }
    void setDark(bool dark);
    void setHighContrast(bool highContrast);
    void setReducedMotion(bool reducedMotion);
    /// Kept between a half and three: beyond lies a mistyped setting.
    void setTextScale(double textScale);

Q_SIGNALS:
    void darkChanged();
    void highContrastChanged();
    void reducedMotionChanged();
    void textScaleChanged();

private:
    ABAppearance() = default;

    bool dark_ = false;
    bool highContrast_ = false;
    bool reducedMotion_ = false;
    double textScale_ = 1;
};

} // namespace ambrel
