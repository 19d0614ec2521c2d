#include "UI/StatusBar/StatusIcons.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace ambrel {

namespace {

struct BuiltMask {
    int size;
    const std::uint8_t* coverage;
};

#include "BuiltStatusIcons.inc"

template <std::size_t count> IconPicture picture(const BuiltMask (&masks)[count]) {
    IconPicture picture;
    for (const auto& mask : masks) {
        picture.push_back({mask.size, {mask.coverage, mask.coverage + mask.size * mask.size}});
    }
    return picture;
}

IconMask blend(const IconMask& from, IconMask to, double share) {
    std::transform(from.coverage.begin(), from.coverage.end(), to.coverage.begin(), to.coverage.begin(),
                   [share](std::uint8_t before, std::uint8_t after) {
                       return static_cast<std::uint8_t>(std::lround(before + (after - before) * share));
                   });
    return to;
}

} // namespace

StatusIcons StatusIcons::built() {
    return {picture(builtMenuBarIconActive), picture(builtMenuBarIconPaused)};
}

IconPicture blend(const IconPicture& from, const IconPicture& to, double share) {
    auto blended = to;
    for (auto& mask : blended) {
        const auto before =
            std::find_if(from.begin(), from.end(), [&](const IconMask& other) { return other.size == mask.size; });
        if (before != from.end()) {
            mask = blend(*before, std::move(mask), share);
        }
    }
    return blended;
}

} // namespace ambrel
