#include "DesignSystem/ABAppearance.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include <QJSEngine>

namespace ambrel {

namespace {

constexpr double smallestTextScale = 0.5;
constexpr double largestTextScale = 3;

} // namespace

ABAppearance& ABAppearance::shared() {
    static ABAppearance appearance;
    return appearance;
}

ABAppearance* ABAppearance::create(QQmlEngine*, QJSEngine*) {
    QJSEngine::setObjectOwnership(&shared(), QJSEngine::CppOwnership);
    return &shared();
}

void ABAppearance::setDark(bool dark) {
    if (std::exchange(dark_, dark) != dark) {
        Q_EMIT darkChanged();
    }
}

void ABAppearance::setHighContrast(bool highContrast) {
    if (std::exchange(highContrast_, highContrast) != highContrast) {
        Q_EMIT highContrastChanged();
    }
}

void ABAppearance::setReducedMotion(bool reducedMotion) {
    if (std::exchange(reducedMotion_, reducedMotion) != reducedMotion) {
        Q_EMIT reducedMotionChanged();
    }
}

void ABAppearance::setTextScale(double textScale) {
    const double kept = std::isfinite(textScale) ? std::clamp(textScale, smallestTextScale, largestTextScale) : 1;
    if (std::exchange(textScale_, kept) != kept) {
        Q_EMIT textScaleChanged();
    }
}

} // namespace ambrel
