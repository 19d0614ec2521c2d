#include "Platform/Linux/AllTrayItems.h"

#include <algorithm>
#include <utility>

#include <unistd.h>

namespace ambrel {

AllTrayItems::AllTrayItems(std::vector<TrayItems*> kinds) : kinds_(std::move(kinds)) {
    for (auto* const kind : kinds_) {
        subscriptions_.push_back(kind->didChange.subscribe([this] { didChange.emit(); }));
    }
}

bool AllTrayItems::owns(ProcessId pid) const {
    return pid != ::getpid() &&
           std::any_of(kinds_.begin(), kinds_.end(), [pid](const TrayItems* kind) { return kind->owns(pid); });
}

} // namespace ambrel
