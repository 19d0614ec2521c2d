#pragma once

#include <QSize>

namespace ambrel {

/// The size and the limits of a form of the settings window.
struct SettingsForm {
    const char* name;
    QSize size;
    QSize minimum;
    QSize maximum;

    [[nodiscard]] static constexpr SettingsForm of(bool isAdvanced) {
        return isAdvanced ? SettingsForm{"advanced", {720, 620}, {640, 540}, largest()}
                          : SettingsForm{"simple", smallest(), smallest(), smallest()};
    }
    /// What every form fits in between, for the way from one to the other.
    [[nodiscard]] static constexpr QSize smallest() { return {480, 360}; }
    [[nodiscard]] static constexpr QSize largest() { return {4000, 4000}; }
};

} // namespace ambrel
