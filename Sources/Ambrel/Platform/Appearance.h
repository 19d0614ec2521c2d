#pragma once

#include "Core/Signal.h"

namespace ambrel {

enum class ColorScheme { unknown, light, dark };

/// How the user wants things to look. As it stands here where the desktop doesn't say.
struct AppearanceFacts {
    ColorScheme colorScheme = ColorScheme::unknown;
    bool highContrast = false;
    bool reducedMotion = false;
    double textScale = 1; ///< of text alone, beside the scale of the display

    bool operator==(const AppearanceFacts&) const = default;
};

/// What the desktop says of its looks. Its answers may come at any time; events are emitted on the main thread.
class Appearance {
public:
    virtual ~Appearance() = default;

    [[nodiscard]] virtual AppearanceFacts current() const = 0;

    Signal<> didChange;
};

} // namespace ambrel
