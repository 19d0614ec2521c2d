#include "Platform/Linux/IconPaint.h"

#include <cstdlib>
#include <vector>

#include <gtest/gtest.h>

namespace ambrel {
namespace {

using Pixels = std::vector<std::uint32_t>;

TEST(IconPaint, FillsTheMaskWithOneColour) {
    const IconMask mask{2, {0, 255, 128, 1}};
    const IconColour orange{255, 128, 0};
    EXPECT_EQ(paintIcon(mask, orange, AlphaForm::straight), (Pixels{0x00FF8000, 0xFFFF8000, 0x80FF8000, 0x01FF8000}));
    EXPECT_EQ(paintIcon(mask, orange, AlphaForm::premultiplied), (Pixels{0, 0xFFFF8000, 0x80804000, 0x01010100}));
}

TEST(IconPaint, MixesTheTintIn) {
    const IconColour white{255, 255, 255};
    const auto tint = [](double amount) {
        return IconTint{.red = 200, .green = 0, .blue = 100, .amount = amount};
    };
    EXPECT_EQ(tinted(white, std::nullopt), white);
    EXPECT_EQ(tinted(white, tint(0)), white);
    EXPECT_EQ(tinted(white, tint(0.5)), (IconColour{228, 128, 178}));
    EXPECT_EQ(tinted(white, tint(1)), (IconColour{200, 0, 100}));
    EXPECT_EQ(tinted(white, tint(7)), (IconColour{200, 0, 100}));
}

TEST(IconPaint, TakesTheLargestPictureThatHasRoom) {
    const IconPicture picture{{16, {}}, {22, {}}, {48, {}}};
    const auto size = [&](int room) {
        return fittingMask(picture, room)->size;
    };
    EXPECT_EQ((std::vector{size(1), size(16), size(21), size(22), size(47), size(48), size(500)}),
              (std::vector{16, 16, 16, 22, 22, 48, 48}));
    EXPECT_EQ(fittingMask({}, 22), nullptr);
}

TEST(IconPaint, StandsOutFromEveryGround) {
    for (int shade = 0; shade < 256; ++shade) {
        const auto level = static_cast<std::uint8_t>(shade);
        const auto colour = foregroundOn(isDark({level, level, level}));
        EXPECT_GE(std::abs(colour.red - shade), 80) << shade;
    }
}

} // namespace
} // namespace ambrel
