#pragma once

#include "Core/Signal.h"
#include "Platform/WindowServer.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace ambrel {

/// A square one-colour picture: coverage from 0, nothing, to 255, row by row.
struct IconMask {
    int size = 0;
    std::vector<std::uint8_t> coverage;

    bool operator==(const IconMask&) const = default;
};

/// One picture in several sizes, the smallest first. The empty one is blank.
using IconPicture = std::vector<IconMask>;

/// What a picture is mixed with: at amount 0 it has the tray's own foreground, at 1 the colour.
struct IconTint {
    std::uint8_t red = 0;
    std::uint8_t green = 0;
    std::uint8_t blue = 0;
    double amount = 0;

    bool operator==(const IconTint&) const = default;
};

/// Where the item is on the screen, and the part of that screen that windows may use.
struct StatusItemPlace {
    Rect button;
    Rect visibleFrame;
};

/// An entry of the menu for trays that show nothing else. One without a title is a separator.
struct StatusMenuEntry {
    std::string title;
    std::function<void()> action;
};

/// One item in the tray. It stays, whether or not a tray is there to show it. Main thread only.
class StatusItem {
public:
    virtual ~StatusItem() = default;

    virtual void setImage(IconPicture picture) = 0;
    virtual void setTint(std::optional<IconTint> tint) = 0;
    virtual void setMenu(std::vector<StatusMenuEntry> entries) = 0;
    virtual void setVisible(bool visible) = 0;
    [[nodiscard]] virtual bool isVisible() const = 0;
    /// Where no tray tells its place, or none shows it, this is the place where one would be looked for: a question
    /// that hangs from the item has to be asked somewhere.
    [[nodiscard]] virtual StatusItemPlace place() const = 0;

    /// A primary click, when `place` is up to date.
    Signal<> clicked;
};

/// The desktop's tray.
class StatusBar {
public:
    virtual ~StatusBar() = default;

    /// The `identifier` stays the same from run to run; the title is for people. Null where the desktop takes no items.
    [[nodiscard]] virtual std::shared_ptr<StatusItem> makeItem(std::string identifier, std::string title) = 0;
};

} // namespace ambrel
