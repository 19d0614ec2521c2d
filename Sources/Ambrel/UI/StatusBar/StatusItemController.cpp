#include "UI/StatusBar/StatusItemController.h"

namespace ambrel {

StatusItemController& StatusItemController::shared() {
    static auto& controller = *new StatusItemController;
    return controller;
}

void StatusItemController::showConfirm(bool force) {
    log_.notice("the confirmation of Quit All is not there yet; nothing was {}", force ? "force-quit" : "quit");
}

} // namespace ambrel
