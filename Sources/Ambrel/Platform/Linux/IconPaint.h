#pragma once

#include "Platform/StatusBar.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace ambrel {

struct IconColour {
    std::uint8_t red = 0;
    std::uint8_t green = 0;
    std::uint8_t blue = 0;

    bool operator==(const IconColour&) const = default;
};

/// What is seen of an item: its picture, and what is mixed into its colour.
struct IconLook {
    IconPicture picture;
    std::optional<IconTint> tint;
};

enum class AlphaForm { straight, premultiplied };

/// Pixels 0xAARRGGBB, row by row.
[[nodiscard]] std::vector<std::uint32_t> paintIcon(const IconMask& mask, IconColour colour, AlphaForm form);

[[nodiscard]] IconColour tinted(IconColour colour, const std::optional<IconTint>& tint);

/// The largest mask that has room, else the smallest; null for a blank picture.
[[nodiscard]] const IconMask* fittingMask(const IconPicture& picture, int room);

/// The foreground that a background of this kind asks for.
[[nodiscard]] IconColour foregroundOn(bool darkBackground);
[[nodiscard]] bool isDark(IconColour background);

} // namespace ambrel
