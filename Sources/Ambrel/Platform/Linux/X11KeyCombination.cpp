#include "Platform/Linux/X11KeyCombination.h"

#include <algorithm>

namespace ambrel {

namespace {

/// The upper half of a state tells of the pointer's buttons.
constexpr unsigned modifierBits = 0xff;

} // namespace

std::vector<std::uint16_t> X11KeyCombination::states() const {
    std::vector<std::uint16_t> states;
    // Subtracting one and masking walks through all subsets of a mask, from the whole to the empty one.
    for (unsigned subset = locks;; subset = (subset - 1) & locks) {
        states.push_back(static_cast<std::uint16_t>(modifiers | subset));
        if (subset == 0) {
            return states;
        }
    }
}

bool X11KeyCombination::matches(xcb_keycode_t key, std::uint16_t state) const {
    return std::find(keys.begin(), keys.end(), key) != keys.end() && (state & modifierBits & ~locks) == modifiers;
}

} // namespace ambrel
