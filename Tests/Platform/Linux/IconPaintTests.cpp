#include "Platform/Linux/IconPaint.h"

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

} // namespace
} // namespace ambrel
