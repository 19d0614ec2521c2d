#pragma once

#include "State/AppRule.h"

#include <map>
#include <set>
#include <string>

namespace ambrel::walk {

/// Everything that the user of the walk has chosen, as the walk last said it.
struct Wishes {
    enum class Guard { none, whitelist, shadow };

    bool paused = false;
    double delay = 0.5;
    bool quitAtZeroWindows = true; ///< else at one
    std::set<std::string> excluded;
    std::map<std::string, AppRule> own; ///< by bundle identifier
    AppRule others{""};
    Guard guard = Guard::none;

    [[nodiscard]] const AppRule& of(const std::string& bundleID) const {
        const auto found = own.find(bundleID);
        return found == own.end() ? others : found->second;
    }
    [[nodiscard]] long threshold() const { return quitAtZeroWindows ? 0 : 1; }
};

} // namespace ambrel::walk
