#pragma once

#include "Platform/StatusBar.h"

#include <utility>

namespace ambrel::simulated {

/// An item as the user sees and uses it.
class SimulatedStatusItem final : public StatusItem {
public:
    void setImage(IconPicture picture) override { film.push_back(std::move(picture)); }
    void setTint(std::optional<IconTint> tint) override { tints.push_back(tint); }
    void setMenu(std::vector<StatusMenuEntry> entries) override { menu = std::move(entries); }
    void setVisible(bool value) override { visible = value; }
    [[nodiscard]] bool isVisible() const override { return visible; }
    [[nodiscard]] StatusItemPlace place() const override { return spot; }

    /// The user clicks where the item is, or would be.
    void click() const {
        if (visible && trayIsThere) {
            clicked.emit();
        }
    }
    /// The user picks the entry of this title; false where there is none.
    [[nodiscard]] bool choose(const std::string& title) const {
        for (const auto& entry : menu) {
            if (entry.title == title) {
                entry.action();
                return true;
            }
        }
        return false;
    }
    [[nodiscard]] IconPicture picture() const { return film.empty() ? IconPicture() : film.back(); }
    [[nodiscard]] std::optional<IconTint> tint() const { return tints.empty() ? std::nullopt : tints.back(); }

    std::vector<IconPicture> film;              ///< every picture it has had
    std::vector<std::optional<IconTint>> tints; ///< and every tint
    std::vector<StatusMenuEntry> menu;
    bool visible = true;
    bool trayIsThere = true;
    StatusItemPlace spot{.button = {.x = 1200, .y = 2, .width = 22, .height = 22},
                         .visibleFrame = {.x = 0, .y = 26, .width = 1280, .height = 774}};
};

} // namespace ambrel::simulated
