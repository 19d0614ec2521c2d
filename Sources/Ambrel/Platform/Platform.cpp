#include "Platform/Platform.h"

namespace ambrel {

namespace {
Platform* thePlatform = nullptr;
}

Platform& Platform::shared() {
    return *thePlatform;
}

void Platform::install(Platform& platform) {
    thePlatform = &platform;
}

} // namespace ambrel
