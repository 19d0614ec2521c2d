#include "Walk/Statement.h"

#include <algorithm>

#include <fmt/format.h>

#include <strings.h>

namespace ambrel::walk {

namespace {

/// Dates are binary fractions.
constexpr double slack = 1e-4;
constexpr double secondCheck = 0.5;
constexpr double longestCheck = 2.1;
constexpr double longestQuestion = 1.6;
constexpr double lastLook = 2.1;

bool isEditor(const std::string& bundleID) {
    return strcasecmp(bundleID.c_str(), "com.apple.TextEdit") == 0;
}

} // namespace

Statement::Statement(simulated::SimulatedPlatform& desktop, const Wishes& wishes, DesktopHistory& history)
    : desktop_(desktop), wishes_(wishes), history_(history) {
    auto& requests = desktop.workspace().requests;
    notes_.push_back(requests.willTerminate.subscribe([this](auto& each) { requested(each.pid, "terminated"); }));
    notes_.push_back(requests.willHide.subscribe([this](auto& each) { requested(each.pid, "hidden"); }));
    notes_.push_back(requests.willForceTerminate.subscribe(
        [this](auto& each) { claim(false, *desktop_.workspace().find(each.pid), "was ended by force"); }));
}

void Statement::ambrelStarted(DecisionsTail* tail, std::function<void()> drain) {
    tail_ = tail;
    drain_ = std::move(drain);
    asked_.clear();
    due_.clear();
}

void Statement::requested(ProcessId pid, const std::string& deed) {
    const auto app = desktop_.workspace().find(pid);
    drain_();
    const auto path = tail_->pathOfOnlyDeed(deed, pid);
    claim(!path.empty(), *app, "was asked without exactly one line of its own before it");
    judge(*app, path, deed == "hidden");
    asked_[path][app.get()] = history_.now();
    if (deed == "terminated") {
        auto& history = history_.of(*app);
        claim(!history_.isInFlight(history), *app, "was asked while an earlier request was in flight");
        history.asked = history_.now();
    }
    if (path == "idle" && deed == "terminated") {
        history_.of(*app).touched.reset(); // Asked once, until it is used again.
    }
}

void Statement::finish() {
    drain_();
    if (broken.empty() && !tail_->newDeeds().empty()) {
        broken = "the log says something was done that nobody was asked for";
    }
}

void Statement::judge(const App& app, const std::string& path, bool hides) {
    const auto& history = history_.of(app);
    if (!hides) {
        judgeAny(app);
    }
    claim(path == "idle" || app.bundleIdentifier() != "app.ambrel.Ambrel", app, "is Ambrel");
    if (path == "last-window" && !hides) {
        judgeLastWindow(app, history);
    } else if (path == "hidden" && !hides) {
        judgeHidden(app, history);
    } else if (path == "idle") {
        judgeIdle(app, history, hides);
    } else {
        claim(path == "quit-all" && !hides, app, "was asked on a path that there isn't");
        judgeQuitAll(app);
    }
}

void Statement::judgeAny(const App& app) {
    const auto bundleID = app.bundleIdentifier().value_or("");
    // The guard is asked before the application is asked how to ask it.
    const bool guardIsNew = history_.now() < history_.calm + app.questionTime.count() + slack;
    claim(guardIsNew || wishes_.guard != Wishes::Guard::shadow, app, "was quit in shadow mode");
    claim(guardIsNew || wishes_.guard != Wishes::Guard::whitelist || isEditor(bundleID), app,
          "is not on the whitelist");
    claim(!bundleID.empty(), app, "is nameless");
    claim(!app.isTerminated(), app, "had ended");
}

void Statement::judgeLastWindow(const App& app, const AppHistory& history) {
    const double now = history_.now();
    const auto windows = DesktopHistory::count(app);
    claim(app.activationPolicy() == ActivationPolicy::regular, app, "is not an ordinary application");
    claim(wishFor(app).quitOnLastWindowClose, app, "is kept by its rule");
    claim(!wishes_.excluded.contains(*app.bundleIdentifier()) && app.bundleIdentifier() != "com.apple.finder", app,
          "is excluded");
    claim(!wishes_.paused && !history_.distrusted(), app, "was quit in a pause, or on a count not to be trusted");
    claim(windows <= wishes_.threshold(), app, "has windows");
    claim(windows > 0 || !history_.shows(app) || app.questionTime.count() > 0, app, "is on the screen");
    claim(!app.isHidden(), app, "is hidden");
    claim(DesktopHistory::dialogs(app) == 0, app, "has a dialog open");
    // What begins after the last look can't be seen, nor what begins while the application is asked how to ask it.
    const bool busyForLong = (history_.isOccupied(app) || history_.isWorking(app)) && history.busySince > never &&
                             now > history.busySince + lastLook + app.questionTime.count();
    claim(!busyForLong, app, "is at work or occupied");
    claim(history.above >= history_.begun - slack, app, "was not seen with a window since all began anew");
    const double watched = std::max({history.known, history_.begun, history_.calm}) + attachment;
    claim(history.blind || history.minimised < watched ||
              history_.wall() - *history.minimisedWall > Seconds(minimiseGrace - slack),
          app, "had just been minimised or hidden");
    if (history.blind) {
        return; // Nobody could tell when its windows went.
    }
    claim(now >= history.counted + history.delay + secondCheck - slack, app, "was not without windows long enough");
    claim(history_.paused <= history.counted + slack, app, "was quit for a window closed before a pause");
    claim(history_.untrusted <= history.counted + slack, app, "was quit across a time of no trust");
    claim(history_.begun <= history.counted + slack, app, "was quit for a window closed before all began anew");
    const auto& asked = asked_["last-window"];
    const auto before = asked.find(&app);
    claim(before == asked.end() || before->second < history.counted + slack, app, "was asked twice for one window");
}

void Statement::judgeHidden(const App& app, const AppHistory& history) {
    claim(wishes_.own.contains(*app.bundleIdentifier()) && wishFor(app).quitWhenHidden, app,
          "has no rule that quits it when hidden");
    claim(app.isHidden() && history.hidWillingly, app, "is not hidden, or should not be quit for it");
    claim(!wishes_.paused && history_.paused <= history.hidden + slack, app, "was quit for hiding before a pause");
    claim(std::max(history_.untrusted, history_.begun) <= history.hidden + slack, app,
          "was quit for hiding before all began anew");
    claim(history_.now() >= history.hidden + history.hideDelay - slack, app, "was not hidden long enough");
}

void Statement::judgeIdle(const App& app, const AppHistory& history, bool hides) {
    const auto& wish = wishFor(app);
    const auto limit = 60.0 * static_cast<double>(std::max(wish.idleThresholdMinutes, std::int64_t{5})) - slack;
    const auto wanted = hides ? AppRule::IdleBehavior::hide : AppRule::IdleBehavior::quit;
    claim(wishes_.own.contains(*app.bundleIdentifier()) && wish.idleBehavior == wanted, app,
          "has no rule for idleness");
    claim(app.activationPolicy() == ActivationPolicy::regular, app, "is not an ordinary application");
    claim(!wishes_.paused, app, "was idle in a pause");
    claim(desktop_.workspace().frontmostApplication().get() != &app, app, "is in front");
    claim(history.touched && history_.now() - *history.touched >= limit, app, "was not idle long enough");
    claim(!hides || !app.isHidden(), app, "was hidden already");
    claim(hides || !history_.isOccupied(app) || app.questionTime.count() > 0 ||
              history_.now() < history.busySince + lastLook,
          app, "is occupied");
}

void Statement::judgeQuitAll(const App& app) {
    const bool wanted = quittingAll || history_.now() < quitAllAsked + longestQuestion;
    claim(wanted && wishFor(app).includedInQuitAll, app, "was not meant by Quit All");
    claim(app.bundleIdentifier() != "com.apple.finder" && app.activationPolicy() == ActivationPolicy::regular, app,
          "is nothing for Quit All");
}

void Statement::look() {
    for (const auto& app : desktop_.workspace().applications()) {
        judgeLiveness(*app, history_.of(*app));
    }
}

/// An application that nothing has held back since it was watched with a window, and that has none, is quit.
void Statement::judgeLiveness(const App& app, const AppHistory& history) {
    // A request that is dropped begins anew.
    const int rounds = app.questionTime.count() > 0 ? 3 : 1;
    const bool late =
        history_.now() > history.counted + rounds * (history.delay + longestCheck + app.questionTime.count());
    if (!late || !mustQuit(app, history) || due_[&app] == history.counted) {
        return;
    }
    due_[&app] = history.counted;
    ++due;
    claim(lastAsked(app) >= history.counted, app, "was not quit though nothing spoke against it");
}

double Statement::lastAsked(const App& app) const {
    double last = never;
    for (const auto& [path, times] : asked_) {
        if (const auto time = times.find(&app); time != times.end()) {
            last = std::max(last, time->second);
        }
    }
    return last;
}

bool Statement::mustQuit(const App& app, const AppHistory& history) const {
    const auto bundleID = app.bundleIdentifier();
    const double watched = std::max(history.upset, history_.calm) + attachment;
    // Nobody counts anew because the threshold changes.
    const bool countedSince = history.raised >= history_.turned || history_.begun > history_.turned;
    return countedSince && app.activationPolicy() == ActivationPolicy::regular && bundleID &&
           history.count <= wishes_.threshold() && history.dialogs == 0 &&
           !(app.wasSignalled() && lastAsked(app) < history.counted) && watched <= history.above &&
           wishFor(app).quitOnLastWindowClose && !wishes_.excluded.contains(*bundleID) &&
           *bundleID != "com.apple.finder" && *bundleID != "app.ambrel.Ambrel" && !history.blind &&
           wishes_.guard == Wishes::Guard::none;
}

void Statement::claim(bool holds, const App& app, const char* otherwise) {
    if (!holds && broken.empty()) {
        broken =
            fmt::format("{} (pid {}) {}", app.bundleIdentifier().value_or("?"), app.processIdentifier(), otherwise);
    }
}

const AppRule& Statement::wishFor(const App& app) const {
    return wishes_.of(app.bundleIdentifier().value_or(""));
}

} // namespace ambrel::walk
