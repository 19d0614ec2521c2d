#include "Platform/Linux/X11HotKeyCenter.h"

#include "Platform/Linux/X11HotKeyRegistration.h"

#include <utility>

namespace ambrel {

HotKeyResult X11HotKeyCenter::registerHotKey(HotKey key, std::function<void()> onPress) {
    auto registration = std::make_unique<X11HotKeyRegistration>(connection_, key, std::move(onPress));
    const auto status = registration->status();
    if (status != 0) {
        registration.reset();
    }
    return {.status = status, .registration = std::move(registration)};
}

} // namespace ambrel
