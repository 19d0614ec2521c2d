#include "Platform/Linux/X11HotKeyCenter.h"

namespace ambrel {

HotKeyResult X11HotKeyCenter::registerHotKey(HotKey, std::function<void()>) {
    return {.status = -1, .registration = nullptr};
}

} // namespace ambrel
