#pragma once

#include <QString>
#include <QUrl>

namespace ambrel {

/// Where a picture of the application's icon comes from.
[[nodiscard]] inline QString iconSourceOf(const QString& bundleIdentifier) {
    return QStringLiteral("image://application/") + QString::fromLatin1(QUrl::toPercentEncoding(bundleIdentifier));
}

} // namespace ambrel
