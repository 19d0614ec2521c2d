#pragma once

#include <map>
#include <set>
#include <string>

namespace ambrel::walk {

/// What the user wants to happen to one application.
struct Wish {
    enum class Idle { nothing, hide, quit };

    bool quitAfterLastWindow = true;
    bool quitWhenHidden = false;
    Idle whenIdle = Idle::nothing;
    long idleMinutes = 30;
    bool inQuitAll = true;
};

/// Everything that the user of the walk has chosen, as the walk last said it.
struct Wishes {
    enum class Guard { none, whitelist, shadow };

    bool paused = false;
    double delay = 0.5;
    bool quitAtZeroWindows = true; ///< else at one
    std::set<std::string> excluded;
    std::map<std::string, Wish> own; ///< by bundle identifier
    Wish others;
    Guard guard = Guard::none;

    [[nodiscard]] const Wish& of(const std::string& bundleID) const {
        const auto found = own.find(bundleID);
        return found == own.end() ? others : found->second;
    }
    [[nodiscard]] long threshold() const { return quitAtZeroWindows ? 0 : 1; }
};

} // namespace ambrel::walk
