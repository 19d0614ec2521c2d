#include "DesignSystem/ABFont.h"

#include <algorithm>

#include <QFontDatabase>
#include <QFontMetricsF>

namespace ambrel {

namespace {

constexpr int smallestSize = 11;

QString familyOf(QFontDatabase::SystemFont otherwise, const QString& wanted) {
    return QFontDatabase::hasFamily(wanted) ? wanted : QFontDatabase::systemFont(otherwise).family();
}

QString textFamily() {
    static const auto family = familyOf(QFontDatabase::GeneralFont, QStringLiteral("Inter"));
    return family;
}

/// Its small letters are as high as Inter's.
QString monospacedFamily() {
    static const auto family = familyOf(QFontDatabase::FixedFont, QStringLiteral("DejaVu Sans Mono"));
    return family;
}

} // namespace

QFont ABFont::font(const ABTextStyle& style, double scale) {
    QFont font(style.monospaced ? monospacedFamily() : textFamily());
    font.setPixelSize(std::max(smallestSize, qRound(style.size * scale)));
    font.setWeight(style.weight);
    return font;
}

int ABFont::lineHeight(const ABTextStyle& style, double scale) {
    return std::max(qRound(style.line * scale), qCeil(QFontMetricsF(font(style, scale)).height()));
}

int ABFont::leadingAbove(const ABTextStyle& style, double scale) {
    return qRound((lineHeight(style, scale) - QFontMetricsF(font(style, scale)).height()) / 2);
}

} // namespace ambrel
