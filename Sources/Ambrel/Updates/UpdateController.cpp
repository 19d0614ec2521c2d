#include "Updates/UpdateController.h"

namespace ambrel {

UpdateController& UpdateController::shared() {
    static auto& controller = *new UpdateController;
    return controller;
}

} // namespace ambrel
