#include "Platform/Linux/LockVerdict.h"

#include <algorithm>

namespace ambrel {

void LockVerdict::says(const std::string& service, bool locked) {
    living_[service] = locked;
    lockedByTheDead_ = lockedByTheDead_ && locked;
}

bool LockVerdict::dies(const std::string& service) {
    const auto last = living_.extract(service);
    const bool staysLocked = !last.empty() && last.mapped();
    lockedByTheDead_ = lockedByTheDead_ || staysLocked;
    return staysLocked;
}

std::optional<bool> LockVerdict::isLocked() const {
    if (lockedByTheDead_) {
        return true;
    }
    if (living_.empty()) {
        return std::nullopt;
    }
    return std::any_of(living_.begin(), living_.end(), [](const auto& word) { return word.second; });
}

} // namespace ambrel
