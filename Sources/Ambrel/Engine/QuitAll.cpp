#include "Engine/QuitAll.h"

namespace ambrel {

QuitAll& QuitAll::shared() {
    static auto& quitAll = *new QuitAll;
    return quitAll;
}

int QuitAll::run(bool force) {
    log_.notice("Quit All is not there yet; nothing was {}", force ? "force-quit" : "quit");
    return 0;
}

} // namespace ambrel
