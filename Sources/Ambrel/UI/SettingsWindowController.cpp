#include "UI/SettingsWindowController.h"

namespace ambrel {

SettingsWindowController& SettingsWindowController::shared() {
    static auto& controller = *new SettingsWindowController;
    return controller;
}

} // namespace ambrel
