#pragma once

#include "Platform/HotKeyCenter.h"
#include "Platform/Linux/X11Connection.h"
#include "Platform/Linux/X11KeyCombination.h"

#include <array>
#include <functional>
#include <initializer_list>
#include <optional>
#include <vector>

#include <xcb/xcb_keysyms.h>

namespace ambrel {

/// The keyboard map as it was when this object was made.
class X11Keymap {
public:
    explicit X11Keymap(X11Connection& connection);

    /// Absent where the keyboard has no such key, where one of the modifiers is missing, or where two of them can't be
    /// told apart.
    [[nodiscard]] std::optional<X11KeyCombination> find(HotKey key) const;

private:
    struct FreeSymbols {
        void operator()(xcb_key_symbols_t* symbols) const { xcb_key_symbols_free(symbols); }
    };

    void readModifiers(xcb_connection_t* connection);
    [[nodiscard]] xcb_keysym_t lookUp(xcb_keycode_t key, int column) const;
    [[nodiscard]] bool carries(xcb_keycode_t key, xcb_keysym_t symbol) const;
    [[nodiscard]] std::vector<xcb_keycode_t> keys(xcb_keysym_t symbol) const;
    [[nodiscard]] std::vector<xcb_keycode_t> keysIf(const std::function<bool(xcb_keycode_t)>& condition) const;
    /// The bit of the first modifier that one of the symbols stands for; 0 if there is none.
    [[nodiscard]] std::uint16_t modifier(std::initializer_list<xcb_keysym_t> symbols) const;
    /// 0 where they don't make a combination.
    [[nodiscard]] std::uint16_t modifiers(std::uint32_t carbonModifiers) const;

    xcb_keycode_t first_;
    xcb_keycode_t last_;
    std::unique_ptr<xcb_key_symbols_t, FreeSymbols> symbols_;
    std::array<std::vector<xcb_keycode_t>, 8> modifierKeys_;
};

} // namespace ambrel
