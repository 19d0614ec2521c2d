#include "UI/Components/ApplicationIconProvider.h"

#include "DesignSystem/ABColor.h"
#include "DesignSystem/ABFont.h"
#include "Platform/Workspace.h"

#include <algorithm>

#include <QDir>
#include <QIcon>
#include <QPainter>
#include <QTextBoundaryFinder>
#include <QUrl>

namespace ambrel {

namespace {

constexpr int smallest = 16;

QImage emptyPicture(int pixels) {
    QImage picture(pixels, pixels, QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    return picture;
}

QString firstLetter(const QString& name) {
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, name);
    return name.left(static_cast<int>(std::max<qsizetype>(finder.toNextBoundary(), 0))).toUpper();
}

QImage letterTile(const QString& name, int pixels) {
    auto picture = emptyPicture(pixels);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(ABColor::accentMuted());
    painter.drawRoundedRect(picture.rect(), pixels / 4.0, pixels / 4.0);
    auto font = ABFont::font(ABFont::title(), 1);
    font.setPixelSize(pixels * 5 / 9);
    painter.setFont(font);
    painter.setPen(ABColor::accent());
    painter.drawText(picture.rect(), Qt::AlignCenter, firstLetter(name));
    return picture;
}

/// In the middle of a square, as large as fits. Null where there is no such icon.
QImage drawing(const QString& nameOrPath, int pixels) {
    const auto icon = QDir::isAbsolutePath(nameOrPath) ? QIcon(nameOrPath) : QIcon::fromTheme(nameOrPath);
    const auto drawn = icon.pixmap(QSize(pixels, pixels), 1).toImage();
    if (drawn.isNull()) {
        return {};
    }
    const auto fitting = drawn.scaled(pixels, pixels, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    auto picture = emptyPicture(pixels);
    QPainter painter(&picture);
    painter.drawImage((pixels - fitting.width()) / 2, (pixels - fitting.height()) / 2, fitting);
    return picture;
}

} // namespace

ApplicationIconProvider::ApplicationIconProvider(const Workspace& workspace)
    : QQuickImageProvider(Image), workspace_(workspace) {}

QImage ApplicationIconProvider::requestImage(const QString& id, QSize* size, const QSize& requestedSize) {
    const int pixels = std::max(requestedSize.width(), smallest);
    const auto identifier = QUrl::fromPercentEncoding(id.toUtf8());
    const auto application = workspace_.installedApplication(identifier.toStdString());
    auto picture = application ? drawing(QString::fromStdString(application->icon), pixels) : QImage();
    if (picture.isNull()) {
        picture = letterTile(application ? QString::fromStdString(application->displayName) : identifier, pixels);
    }
    *size = picture.size();
    return picture;
}

} // namespace ambrel
