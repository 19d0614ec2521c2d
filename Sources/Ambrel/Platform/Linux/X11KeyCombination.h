#pragma once

#include <cstdint>
#include <vector>

#include <xcb/xproto.h>

namespace ambrel {

/// A key combination in the terms of one keyboard map.
struct X11KeyCombination {
    std::vector<xcb_keycode_t> keys; ///< each of them will do
    std::uint16_t modifiers = 0;     ///< held down, all of them
    std::uint16_t locks = 0;         ///< of no account, whether on or off

    /// Every state of the modifiers in which the combination is meant: a grab is for one exact state.
    [[nodiscard]] std::vector<std::uint16_t> states() const;
    [[nodiscard]] bool matches(xcb_keycode_t key, std::uint16_t state) const;

    bool operator==(const X11KeyCombination&) const = default;
};

} // namespace ambrel
