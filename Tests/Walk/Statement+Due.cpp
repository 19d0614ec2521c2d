#include "Walk/Statement.h"

#include <algorithm>

namespace ambrel::walk {

namespace {
constexpr double longestCheck = 2.1;
} // namespace

void Statement::look() {
    for (const auto& app : desktop_.workspace().applications()) {
        judgeLiveness(*app, history_.of(*app));
    }
}

/// An application that nothing has held back since it was watched with a window, and that has none, is quit.
void Statement::judgeLiveness(const App& app, const AppHistory& history) {
    const bool late = history_.now() > history.counted + history.delay + longestCheck;
    if (!late || !mustQuit(app, history) || due_[&app] == history.counted) {
        return;
    }
    due_[&app] = history.counted;
    ++due;
    claim(asked_["last-window"][&app] >= history.counted, app, "was not quit though nothing spoke against it");
}

bool Statement::mustQuit(const App& app, const AppHistory& history) const {
    const auto bundleID = app.bundleIdentifier();
    const double watched = std::max(history.upset, history_.calm) + attachment;
    // Nobody counts anew because the threshold changes.
    const bool countedSince = history.raised >= history_.turned || history_.begun > history_.turned;
    return countedSince && app.activationPolicy() == ActivationPolicy::regular && bundleID &&
           history.count <= wishes_.threshold() && watched <= history.above && wishFor(app).quitAfterLastWindow &&
           !wishes_.excluded.contains(*bundleID) && *bundleID != "com.apple.finder" &&
           *bundleID != "app.ambrel.Ambrel" && !history.blind && wishes_.guard == Wishes::Guard::none;
}

} // namespace ambrel::walk
