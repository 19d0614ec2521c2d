#include "UI/Stage/WindowAnimation.h"

#include "DesignSystem/ABAppearance.h"
#include "DesignSystem/ABRenderConfig.h"
#include "DesignSystem/ABSpring.h"

#include <cmath>
#include <numbers>

#include <QQuickItem>
#include <QQuickView>
#include <QVariantAnimation>

namespace ambrel {

namespace {

// Of the spring that a window grows on, with a mass of 1.
constexpr double stiffness = 385;
constexpr double damping = 34;
/// Less than half a pixel of any window.
constexpr double scaleEpsilon = 0.0005;

ABSpringMotion growth() {
    return {.response = 2 * std::numbers::pi / std::sqrt(stiffness),
            .dampingFraction = damping / (2 * std::sqrt(stiffness))};
}

QVariantAnimation& fade(QQuickView& window, double fromAlpha, double toAlpha, double duration) {
    auto* const fade = new QVariantAnimation(&window);
    fade->setStartValue(fromAlpha);
    fade->setEndValue(toAlpha);
    fade->setDuration(static_cast<int>(duration * 1000));
    fade->setEasingCurve(QEasingCurve::OutQuad);
    QObject::connect(fade, &QVariantAnimation::valueChanged, &window,
                     [&window](const QVariant& alpha) { window.setOpacity(alpha.toDouble()); });
    window.setOpacity(fromAlpha);
    fade->start(QAbstractAnimation::DeleteWhenStopped);
    return *fade;
}

void growIn(QQuickView& window, double scaleFrom) {
    auto* const spring = new ABSpring(&window);
    auto* const content = window.rootObject();
    spring->setProperty("motion", QVariant::fromValue(growth()));
    spring->setProperty("epsilon", scaleEpsilon);
    QObject::connect(spring, &ABSpring::valueChanged, content, [=] { content->setScale(spring->value()); });
    QObject::connect(spring, &ABSpring::movingChanged, spring, [=] {
        if (!spring->moving()) {
            spring->deleteLater();
        }
    });
    spring->jump(scaleFrom);
    spring->setTarget(1);
}

} // namespace

void animateWindowIn(QQuickView& window, double scaleFrom, double fromAlpha, double duration) {
    if (ABRenderConfig::drawsPictures()) {
        return;
    }
    fade(window, fromAlpha, 1, duration);
    if (!ABAppearance::shared().reducedMotion() && window.rootObject() != nullptr) {
        growIn(window, scaleFrom);
    }
}

void animateWindowOut(QQuickView& window, double duration) {
    QObject::connect(&fade(window, window.opacity(), 0, duration), &QVariantAnimation::finished, &window,
                     &QWindow::hide);
}

} // namespace ambrel
