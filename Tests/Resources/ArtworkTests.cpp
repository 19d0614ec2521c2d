#include <algorithm>
#include <cstdlib>

#include <QDir>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>
#include <gtest/gtest.h>

namespace ambrel {
namespace {

/// Null where there is no such drawing, or it cannot be drawn.
QImage draw(const QString& file, int size) {
    QSvgRenderer renderer(file);
    if (!renderer.isValid()) {
        return {};
    }
    QImage image(size, size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    renderer.render(&painter, image.rect());
    painter.end();
    return image;
}

TEST(Artwork, SymbolsCanBeTintedAndKeepTheirMargin) {
    const QRect withoutMargin(20, 20, 200, 200);
    const auto files = QDir(":/ambrel/symbols").entryList();
    EXPECT_FALSE(files.isEmpty());
    for (const auto& file : files) {
        const auto image = draw(":/ambrel/symbols/" + file, 240);
        ASSERT_FALSE(image.isNull()) << file.toStdString();
        int inked = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                const auto pixel = image.pixel(x, y);
                ASSERT_TRUE(pixel == 0 || withoutMargin.contains(x, y)) << file.toStdString();
                ASSERT_EQ(pixel & RGB_MASK, 0U) << file.toStdString() << " is not black";
                inked += qAlpha(pixel) > 127 ? 1 : 0;
            }
        }
        EXPECT_GT(inked, 0.04 * 240 * 240) << file.toStdString();
    }
}

int largestChannelDifference(const QImage& one, const QImage& other) {
    int largest = 0;
    for (int y = 0; y < one.height(); ++y) {
        const auto* const a = one.constScanLine(y);
        const auto* const b = other.constScanLine(y);
        for (int byte = 0; byte < one.width() * 4; ++byte) {
            largest = std::max(largest, std::abs(a[byte] - b[byte]));
        }
    }
    return largest;
}

TEST(Artwork, IconPicturesFollowTheirDrawings) {
    const struct {
        int size;
        const char* drawing;
        int drawn;
    } cases[]{{16, "-16", 16}, {22, "-22", 22}, {24, "-22", 22}, {32, "", 32},  {48, "", 48},
              {64, "", 64},    {128, "", 128},  {256, "", 256},  {512, "", 512}};
    for (const auto& [size, drawing, drawnSize] : cases) {
        SCOPED_TRACE(size);
        const auto drawn = draw(QString(":/ambrel/icon/app.ambrel.Ambrel%1.svg").arg(drawing), drawnSize);
        const auto picture = QImage(QString(ICON_FOLDER "/app.ambrel.Ambrel-%1.png").arg(size));
        ASSERT_EQ(picture.size(), QSize(size, size));
        const int frame = (size - drawnSize) / 2;
        const auto inner = picture.convertToFormat(drawn.format()).copy(frame, frame, drawnSize, drawnSize);
        EXPECT_LE(largestChannelDifference(inner, drawn), 4) << "run Scripts/artwork";
    }
}

} // namespace
} // namespace ambrel
