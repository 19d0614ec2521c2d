#pragma once

#include <map>
#include <optional>
#include <string>

namespace ambrel {

/// What several services say together of the screen, each of which may see only some locks, or die during one. One that
/// says "locked" is enough; a death while the screen is locked unlocks nothing.
class LockVerdict {
public:
    /// A living service's own news, or its answer. "Unlocked" also ends a lock that the dead have left behind.
    void says(const std::string& service, bool locked);

    /// The service is gone. True if its "locked" stays in force, until any living service says "unlocked": so they are
    /// to be asked afresh.
    [[nodiscard]] bool dies(const std::string& service);

    /// Absent while no word is known.
    [[nodiscard]] std::optional<bool> isLocked() const;

private:
    std::map<std::string, bool> living_;
    bool lockedByTheDead_ = false;
};

} // namespace ambrel
