#include "DesignSystem/ABColor.h"

#include "DesignSystem/ABAppearance.h"

namespace ambrel {

namespace {

bool isDark() {
    return ABAppearance::shared().dark();
}

bool hasHighContrast() {
    return ABAppearance::shared().highContrast();
}

QColor either(QRgb light, QRgb dark) {
    return QColor::fromRgb(isDark() ? dark : light);
}

/// Black on light, white on dark, and how much of it.
QColor ink(float light, float dark, float highContrast) {
    const float shade = isDark() ? 1 : 0;
    return QColor::fromRgbF(shade, shade, shade, hasHighContrast() ? highContrast : isDark() ? dark : light);
}

} // namespace

ABColor::ABColor(QObject* parent) : QObject(parent) {
    const auto& appearance = ABAppearance::shared();
    connect(&appearance, &ABAppearance::darkChanged, this, &ABColor::adapted);
    connect(&appearance, &ABAppearance::highContrastChanged, this, &ABColor::adapted);
}

QColor ABColor::accent() {
    return QColor::fromRgbF(0.898F, 0.282F, 0.302F);
}

QColor ABColor::accentMuted() {
    return withAlpha(accent(), 0.12);
}

QColor ABColor::accentFill() {
    constexpr int darkEnoughForWords = 114;
    return hasHighContrast() ? accent().darker(darkEnoughForWords) : accent();
}

QColor ABColor::accentText() {
    return Qt::white;
}

QColor ABColor::error() {
    return either(0xE5342B, 0xFF5A50);
}

QColor ABColor::success() {
    return either(0x28A745, 0x32C759);
}

QColor ABColor::warning() {
    return either(0xE8870E, 0xFF9F2E);
}

QColor ABColor::textPrimary() {
    return ink(0.85F, 0.88F, 1);
}

QColor ABColor::textSecondary() {
    return ink(0.55F, 0.58F, 0.8F);
}

QColor ABColor::textTertiary() {
    return ink(0.32F, 0.32F, 0.66F);
}

QColor ABColor::windowBg() {
    return either(0xF1F1F2, 0x26262A);
}

QColor ABColor::contentBg() {
    return either(0xFFFFFF, 0x2F2F34);
}

QColor ABColor::surfaceHover() {
    return ink(0.08F, 0.09F, 0.16F);
}

QColor ABColor::divider() {
    return ink(0.10F, 0.11F, 0.32F);
}

QColor ABColor::material() {
    return withAlpha(either(0xF7F7F8, 0x2B2B30), 0.96);
}

QColor ABColor::materialEdge() {
    return ink(0.08F, 0.08F, 0.3F);
}

QColor ABColor::control() {
    return either(0xFFFFFF, 0x3C3C42);
}

QColor ABColor::controlEdge() {
    return ink(0.14F, 0.14F, 0.5F);
}

QColor ABColor::raised() {
    return either(0xFFFFFF, 0x64646C);
}

QColor ABColor::knob() {
    return Qt::white;
}

QColor ABColor::shadow() {
    return QColor::fromRgbF(0, 0, 0, isDark() ? 0.45F : 0.2F);
}

QColor ABColor::scrim() {
    return QColor::fromRgbF(0, 0, 0, isDark() ? 0.45F : 0.22F);
}

QColor ABColor::withAlpha(QColor color, double alpha) {
    color.setAlphaF(static_cast<float>(alpha));
    return color;
}

QColor ABColor::over(const QColor& surface, const QColor& color) {
    const float share = color.alphaF();
    const auto mix = [share](float below, float above) {
        return below + share * (above - below);
    };
    return QColor::fromRgbF(mix(surface.redF(), color.redF()), mix(surface.greenF(), color.greenF()),
                            mix(surface.blueF(), color.blueF()));
}

} // namespace ambrel
