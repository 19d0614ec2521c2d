#pragma once

#include "DesignSystem/ABSpringMotion.h"
#include "DesignSystem/ABTimedMotion.h"

#include <QObject>

namespace ambrel {

/// The motions of every view. Springs go with ABSpring, the timed ones with ABFade and ABColorFade.
class ABMotion : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    Q_PROPERTY(ambrel::ABSpringMotion standard READ standard CONSTANT)
    Q_PROPERTY(ambrel::ABSpringMotion fast READ fast CONSTANT)
    Q_PROPERTY(ambrel::ABTimedMotion hover READ hover CONSTANT)
    Q_PROPERTY(ambrel::ABTimedMotion crossfade READ crossfade CONSTANT)

public:
    using QObject::QObject;

    [[nodiscard]] static ABSpringMotion standard() { return {0.32, 0.86}; }
    [[nodiscard]] static ABSpringMotion fast() { return {0.22, 0.9}; }
    [[nodiscard]] static ABTimedMotion hover();
    [[nodiscard]] static ABTimedMotion crossfade();
    /// What an opacity takes where motion is reduced.
    static constexpr int reducedFadeDuration = 120;
};

} // namespace ambrel
