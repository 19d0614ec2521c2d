#include "DesignSystem/DesignSystem.h"

#include <QtGlobal>

void qml_register_types_Ambrel_DesignSystem();

namespace ambrel {

/// The module registers itself, if only the linker keeps it: a static library gives what somebody names.
void registerDesignSystem() {
    [[maybe_unused]] void (*const volatile keep)() = &qml_register_types_Ambrel_DesignSystem;
}

} // namespace ambrel
