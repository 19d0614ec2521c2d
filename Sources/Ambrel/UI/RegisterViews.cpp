#include "UI/RegisterViews.h"

#include "DesignSystem/DesignSystem.h"

void qml_register_types_Ambrel_UI();

namespace ambrel {

/// The types register themselves, if only the linker keeps them: a static library gives what somebody names.
void registerViews() {
    registerDesignSystem();
    [[maybe_unused]] void (*const volatile keep)() = &qml_register_types_Ambrel_UI;
}

} // namespace ambrel
