#include "DesignSystem/BlurredShape.h"

#include <algorithm>
#include <vector>

#include <QPainter>

namespace ambrel {

namespace {

/// Boxes blurred over one another come close to a bell, and reach exactly as far as their reaches together.
constexpr int passes = 3;

/// Averages over `reach` on either side, along one line whose bytes are `stride` apart.
void blurLine(uchar* line, int length, qsizetype stride, int reach, std::vector<uchar>& before) {
    for (int i = 0; i < length; ++i) {
        before[static_cast<std::size_t>(i)] = line[i * stride];
    }
    const auto at = [&](int i) {
        return i >= 0 && i < length ? int{before[static_cast<std::size_t>(i)]} : 0;
    };
    const int width = 2 * reach + 1;
    int sum = 0;
    for (int i = 0; i < reach; ++i) {
        sum += at(i);
    }
    for (int i = 0; i < length; ++i) {
        sum += at(i + reach) - at(i - reach - 1);
        line[i * stride] = static_cast<uchar>(sum / width);
    }
}

void blurOnce(QImage& image, int reach) {
    std::vector<uchar> before(static_cast<std::size_t>(std::max(image.width(), image.height())));
    for (int y = 0; y < image.height(); ++y) {
        blurLine(image.scanLine(y), image.width(), 1, reach, before);
    }
    for (int x = 0; x < image.width(); ++x) {
        blurLine(image.bits() + x, image.height(), image.bytesPerLine(), reach, before);
    }
}

} // namespace

QImage blurredShape(QSize size, int blur, double cornerRadius) {
    QImage image(size, QImage::Format_Alpha8);
    image.fill(0);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Qt::white);
    painter.drawRoundedRect(image.rect().adjusted(blur, blur, -blur, -blur), cornerRadius, cornerRadius);
    painter.end();
    for (int pass = 0; pass < passes; ++pass) {
        blurOnce(image, (blur + pass) / passes);
    }
    return image;
}

} // namespace ambrel
