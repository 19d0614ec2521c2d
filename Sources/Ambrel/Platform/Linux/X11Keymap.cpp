#include "Platform/Linux/X11Keymap.h"

#include <algorithm>

#include <X11/keysym.h>

namespace ambrel {

namespace {

constexpr int firstGroup = 0;
constexpr int mostColumns = 16;

std::optional<xcb_keysym_t> symbolOf(std::uint32_t keyCode) {
    constexpr std::uint32_t q = 12;
    return keyCode == q ? std::optional<xcb_keysym_t>(XK_q) : std::nullopt;
}

} // namespace

X11Keymap::X11Keymap(X11Connection& connection)
    : first_(xcb_get_setup(connection.raw())->min_keycode), last_(xcb_get_setup(connection.raw())->max_keycode),
      symbols_(xcb_key_symbols_alloc(connection.raw())) {
    readModifiers(connection.raw());
}

void X11Keymap::readModifiers(xcb_connection_t* connection) {
    const X11Message<xcb_get_modifier_mapping_reply_t> reply(
        xcb_get_modifier_mapping_reply(connection, xcb_get_modifier_mapping(connection), nullptr));
    if (!reply) {
        return;
    }
    const auto* key = xcb_get_modifier_mapping_keycodes(reply.get());
    for (auto& keys : modifierKeys_) {
        keys.assign(key, key + reply->keycodes_per_modifier);
        std::erase(keys, 0);
        key += reply->keycodes_per_modifier;
    }
}

std::optional<X11KeyCombination> X11Keymap::find(HotKey key) const {
    const auto symbol = symbolOf(key.keyCode);
    const auto held = modifiers(key.carbonModifiers);
    X11KeyCombination combination{.keys = symbol ? keys(*symbol) : std::vector<xcb_keycode_t>(), .modifiers = held};
    if (held == 0 || combination.keys.empty()) {
        return std::nullopt;
    }
    const unsigned locks = XCB_MOD_MASK_LOCK | modifier({XK_Num_Lock}) | modifier({XK_Scroll_Lock});
    combination.locks = static_cast<std::uint16_t>(locks & ~held);
    return combination;
}

std::vector<xcb_keycode_t> X11Keymap::keys(xcb_keysym_t symbol) const {
    auto keys = keysIf([&](xcb_keycode_t key) { return lookUp(key, firstGroup) == symbol; });
    // With two layouts, the second one's letter is another letter of the first, whose combinations are not ours.
    if (keys.empty()) {
        keys = keysIf([&](xcb_keycode_t key) { return carries(key, symbol); });
    }
    return keys;
}

std::vector<xcb_keycode_t> X11Keymap::keysIf(const std::function<bool(xcb_keycode_t)>& condition) const {
    std::vector<xcb_keycode_t> keys;
    for (unsigned key = first_; key <= last_; ++key) {
        if (condition(static_cast<xcb_keycode_t>(key))) {
            keys.push_back(static_cast<xcb_keycode_t>(key));
        }
    }
    return keys;
}

xcb_keysym_t X11Keymap::lookUp(xcb_keycode_t key, int column) const {
    return xcb_key_symbols_get_keysym(symbols_.get(), key, column);
}

bool X11Keymap::carries(xcb_keycode_t key, xcb_keysym_t symbol) const {
    for (int column = 0; column < mostColumns; ++column) {
        if (lookUp(key, column) == symbol) {
            return true;
        }
    }
    return false;
}

std::uint16_t X11Keymap::modifiers(std::uint32_t carbonModifiers) const {
    struct Part {
        std::uint32_t carbon;
        std::uint16_t bit;
    };
    const Part parts[] = {{0x100, modifier({XK_Super_L, XK_Super_R})},
                          {0x200, XCB_MOD_MASK_SHIFT},
                          {0x800, modifier({XK_Alt_L, XK_Alt_R})}};
    std::uint16_t modifiers = 0;
    for (const auto& [carbon, bit] : parts) {
        if ((carbonModifiers & carbon) == 0) {
            continue;
        }
        // Two that can't be told apart would make a combination of fewer keys than the user knows of.
        if (bit == 0 || (modifiers & bit) != 0) {
            return 0;
        }
        modifiers = static_cast<std::uint16_t>(modifiers | bit);
        carbonModifiers &= ~carbon;
    }
    return carbonModifiers == 0 ? modifiers : std::uint16_t(0);
}

std::uint16_t X11Keymap::modifier(std::initializer_list<xcb_keysym_t> symbols) const {
    for (std::size_t index = 0; index < modifierKeys_.size(); ++index) {
        for (const auto key : modifierKeys_[index]) {
            if (std::any_of(symbols.begin(), symbols.end(), [&](auto symbol) { return carries(key, symbol); })) {
                return static_cast<std::uint16_t>(1U << index);
            }
        }
    }
    return 0;
}

} // namespace ambrel
