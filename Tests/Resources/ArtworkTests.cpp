#include <algorithm>
#include <cstdlib>
#include <string>
#include <vector>

#include <QDir>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace ambrel {
namespace {

/// What the views ask for by name.
const QStringList symbolNames{"arrow.clockwise",
                              "arrow.down.right.circle",
                              "checkmark.circle.fill",
                              "checkmark.seal.fill",
                              "chevron.left",
                              "clock.arrow.circlepath",
                              "doc.text.magnifyingglass",
                              "ellipsis",
                              "exclamationmark.triangle.fill",
                              "eye.slash",
                              "gearshape",
                              "hourglass",
                              "info.circle",
                              "lock.fill",
                              "lock.shield",
                              "macwindow.badge.minus",
                              "macwindow.on.rectangle",
                              "moon.zzz",
                              "pause.fill",
                              "play.fill",
                              "plus",
                              "power",
                              "rectangle.stack.badge.minus",
                              "shield.checkered",
                              "slider.horizontal.3",
                              "xmark.circle",
                              "xmark.circle.fill"};

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

QString symbol(const QString& name) {
    return ":/ambrel/symbols/" + name + ".svg";
}

QString status(const QString& name, int size) {
    return QString(":/ambrel/status/%1-%2.svg").arg(name).arg(size);
}

template <typename Count> int sumOverPixels(const QImage& image, const Count& count) {
    int sum = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            sum += count(x, y);
        }
    }
    return sum;
}

int alpha(const QImage& image, int x, int y) {
    return qAlpha(image.pixel(x, y));
}

/// In whole pixels of ink.
int ink(const QImage& image) {
    return sumOverPixels(image, [&](int x, int y) { return alpha(image, x, y); }) / 255;
}

int difference(const QImage& one, const QImage& other) {
    return sumOverPixels(one, [&](int x, int y) { return std::abs(alpha(one, x, y) - alpha(other, x, y)); }) / 255;
}

int inkOutside(const QImage& image, const QRect& frame) {
    return sumOverPixels(image, [&](int x, int y) { return frame.contains(x, y) ? 0 : alpha(image, x, y); }) / 255;
}

int colouredPixels(const QImage& image) {
    return sumOverPixels(
        image, [&](int x, int y) { return alpha(image, x, y) > 0 && (image.pixel(x, y) & RGB_MASK) != 0 ? 1 : 0; });
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

TEST(Artwork, EverySymbolIsEmbeddedAndNoOther) {
    std::vector<std::string> files;
    for (const auto& file : QDir(":/ambrel/symbols").entryList()) {
        files.push_back(file.chopped(4).toStdString());
    }
    std::vector<std::string> names;
    for (const auto& name : symbolNames) {
        names.push_back(name.toStdString());
    }
    EXPECT_THAT(files, testing::UnorderedElementsAreArray(names));
}

TEST(Artwork, SymbolsCanBeTintedAndKeepTheirMargin) {
    const QRect withoutMargin(20, 20, 200, 200);
    for (const auto& name : symbolNames) {
        SCOPED_TRACE(name.toStdString());
        const auto image = draw(symbol(name), 240);
        ASSERT_FALSE(image.isNull());
        EXPECT_GT(ink(image), 0.04 * 240 * 240);
        EXPECT_EQ(inkOutside(image, withoutMargin), 0);
        EXPECT_EQ(colouredPixels(image), 0);
    }
}

TEST(Artwork, FilledFormsHaveTheirSignCutOut) {
    for (const auto& name : {"xmark.circle.fill", "checkmark.circle.fill", "checkmark.seal.fill"}) {
        const auto image = draw(symbol(name), 240);
        EXPECT_GT(alpha(image, 120, 50), 250) << name;
    }
    EXPECT_EQ(alpha(draw(symbol("xmark.circle.fill"), 240), 120, 120), 0);
    EXPECT_EQ(alpha(draw(symbol("checkmark.circle.fill"), 240), 107, 152), 0);
    EXPECT_EQ(alpha(draw(symbol("checkmark.seal.fill"), 240), 107, 152), 0);
    EXPECT_EQ(alpha(draw(symbol("exclamationmark.triangle.fill"), 240), 120, 110), 0);
    EXPECT_EQ(alpha(draw(symbol("macwindow.badge.minus"), 240), 172, 172), 0);
}

TEST(Artwork, NoTwoSymbolsLookAlikeAtSixteenPixels) {
    for (const auto& name : symbolNames) {
        for (const auto& other : symbolNames) {
            if (name < other) {
                EXPECT_GE(difference(draw(symbol(name), 16), draw(symbol(other), 16)), 12)
                    << name.toStdString() << " and " << other.toStdString();
            }
        }
    }
}

TEST(Artwork, StatusIconsDifferInTheirSignAlone) {
    for (const int size : {16, 22}) {
        SCOPED_TRACE(size);
        const auto active = draw(status("MenuBarIconActive", size), size);
        const auto paused = draw(status("MenuBarIconPaused", size), size);
        ASSERT_FALSE(active.isNull() || paused.isNull());
        EXPECT_EQ(QSvgRenderer(status("MenuBarIconActive", size)).defaultSize(), QSize(size, size));
        EXPECT_EQ(colouredPixels(active) + colouredPixels(paused), 0);
        EXPECT_GE(difference(active, paused), size);
        const QRect sign(size / 4, size / 4, size - 2 * (size / 4), size - 2 * (size / 4));
        EXPECT_EQ(difference(active, paused), difference(active.copy(sign), paused.copy(sign)));
    }
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
