#include "Platform/Linux/IconPaint.h"

#include <algorithm>
#include <cmath>

namespace ambrel {

namespace {

constexpr IconColour lightForeground{0xF5, 0xF5, 0xF5};
constexpr IconColour darkForeground{0x2E, 0x2E, 0x2E};

std::uint8_t mixed(std::uint8_t from, std::uint8_t to, double amount) {
    return static_cast<std::uint8_t>(std::lround(from + (to - from) * std::clamp(amount, 0.0, 1.0)));
}

std::uint32_t pixel(IconColour colour, std::uint32_t alpha) {
    return alpha << 24 | static_cast<std::uint32_t>(colour.red) << 16 | static_cast<std::uint32_t>(colour.green) << 8 |
           colour.blue;
}

} // namespace

std::vector<std::uint32_t> paintIcon(const IconMask& mask, IconColour colour, AlphaForm form) {
    std::vector<std::uint32_t> pixels(mask.coverage.size());
    std::transform(mask.coverage.begin(), mask.coverage.end(), pixels.begin(), [=](std::uint8_t alpha) {
        const double share = form == AlphaForm::premultiplied ? alpha / 255.0 : 1;
        return pixel({mixed(0, colour.red, share), mixed(0, colour.green, share), mixed(0, colour.blue, share)}, alpha);
    });
    return pixels;
}

IconColour tinted(IconColour colour, const std::optional<IconTint>& tint) {
    if (!tint) {
        return colour;
    }
    return {mixed(colour.red, tint->red, tint->amount), mixed(colour.green, tint->green, tint->amount),
            mixed(colour.blue, tint->blue, tint->amount)};
}

const IconMask* fittingMask(const IconPicture& picture, int room) {
    const IconMask* best = nullptr;
    for (const auto& mask : picture) {
        const bool isBetter = best == nullptr || (mask.size <= room && (mask.size > best->size || best->size > room)) ||
                              (mask.size > room && mask.size < best->size);
        best = isBetter ? &mask : best;
    }
    return best;
}

IconColour foregroundOn(bool darkBackground) {
    return darkBackground ? lightForeground : darkForeground;
}

bool isDark(IconColour background) {
    return 0.299 * background.red + 0.587 * background.green + 0.114 * background.blue < 140;
}

} // namespace ambrel
