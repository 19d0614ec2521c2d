#include "Walk/DesktopHistory.h"

#include <algorithm>

namespace ambrel::walk {

DesktopHistory::DesktopHistory(simulated::SimulatedPlatform& desktop, const Wishes& wishes)
    : desktop_(desktop), wishes_(wishes) {
    const auto on = [this](auto& signal, auto observer) {
        notes_.push_back(signal.subscribe(std::move(observer)));
    };
    auto& session = desktop.session();
    on(session.screenIsLocked, [this] { setDistrust(locked_, true); });
    on(session.screenIsUnlocked, [this] { setDistrust(locked_, false); });
    on(session.screensDidSleep, [this] { setDistrust(asleep_, true); });
    on(session.screensDidWake, [this] { setDistrust(asleep_, false); });
    on(session.sessionDidResignActive, [this] { setDistrust(away_, true); });
    on(session.sessionDidBecomeActive, [this] { setDistrust(away_, false); });
    on(session.didWake, [this] { beginAnew(); });
    auto& workspace = desktop.workspace();
    on(workspace.didActivate, [this](const auto& app) { of(*app).touched = now(); });
    on(workspace.didDeactivate, [this](const auto& app) { of(*app).touched = now(); });
    on(workspace.didHide, [this](const auto& app) { didHide(*app); });
    on(workspace.windowEvent, [this](ProcessId pid, WindowEvent event) { note(pid, event); });
    on(desktop.windowList().readableDidChange, [this](bool readable) { readableChanged(readable); });
}

AppHistory& DesktopHistory::of(const RunningApplication& app) {
    const auto [place, isNew] = histories_.try_emplace(&app);
    auto& history = place->second;
    if (isNew) {
        history.known = history.upset = now();
        history.blind = !desktop_.windowList().isReadable();
    }
    return history;
}

void DesktopHistory::note(ProcessId pid, WindowEvent event) {
    const auto app = desktop_.workspace().find(pid);
    if (!app) {
        return;
    }
    auto& history = of(*app);
    if (event == WindowEvent::minimized || event == WindowEvent::hidden) {
        history.minimised = now();
        history.minimisedWall = wall();
        history.upset = now() + minimiseGrace;
    } else if (event == WindowEvent::appeared) {
        history.asked = never;
    }
}

/// Nothing is known of any window until it can be read again, and nobody's requests are remembered.
void DesktopHistory::readableChanged(bool readable) {
    for (const auto& app : desktop_.workspace().applications()) {
        auto& history = of(*app);
        history.asked = never;
        history.blind = true;
    }
    if (readable) {
        beginAnew();
    }
}

void DesktopHistory::didHide(const RunningApplication& app) {
    auto& history = of(app);
    const bool willingly = wishes_.of(app.bundleIdentifier().value_or("")).quitWhenHidden && !wishes_.paused &&
                           !distrusted() && wall() - *app.launchDate() > Seconds(3 - 1e-4);
    // Being shown in between takes an earlier hide back only if it is still shown when that one's delay ends.
    if (!willingly && history.hidWillingly && now() < history.hidden + history.hideDelay) {
        return;
    }
    history.hidden = now();
    history.hideDelay = std::max(wishes_.delay, 0.0);
    history.hidWillingly = willingly;
}

void DesktopHistory::setDistrust(bool& flag, bool value) {
    const bool before = distrusted();
    untrusted = before || value ? now() : untrusted;
    flag = value;
    if (before && !distrusted()) {
        beginAnew();
    }
}

/// What was seen before counts for nothing, and nobody has been idle.
void DesktopHistory::beginAnew() {
    begun = now();
    calm = std::max(calm, begun);
    for (const auto& app : desktop_.workspace().applications()) {
        if (app->activationPolicy() == ActivationPolicy::regular) {
            of(*app).touched = now();
        }
    }
}

void DesktopHistory::ambrelStarted() {
    asleep_ = false; // Nobody can ask the displays.
    histories_.clear();
    beginAnew();
}

void DesktopHistory::wishesChanged() {
    calm = std::max(calm, now());
    turned = threshold_ != wishes_.threshold() ? now() : turned;
    paused = wishes_.paused ? now() : paused;
}

void DesktopHistory::shiftWallClock(double span) {
    desktop_.mainQueue().shiftWallClock(Seconds(span));
    shift_ += span;
    // A minimise that now lies in the future holds back until the clock has caught up.
    calm = std::max(calm, now()) + std::max(-span, 0.0) + minimiseGrace;
}

void DesktopHistory::look() {
    for (const auto& app : desktop_.workspace().applications()) {
        look(*app, of(*app));
    }
    threshold_ = wishes_.threshold();
    paused = wishes_.paused ? now() : paused;
    untrusted = distrusted() ? now() : untrusted;
}

void DesktopHistory::look(const App& app, AppHistory& history) {
    const auto windows = count(app);
    if (history.count > threshold_ || windows > wishes_.threshold()) {
        history.above = now();
    }
    if (windows != history.count || dialogs(app) != history.dialogs || app.isHidden() != history.isHidden) {
        history.count = windows;
        history.dialogs = dialogs(app);
        if (history.isHidden && !app.hasWindowOnDesktop()) {
            history.minimised = never; // What was hidden is closed.
            history.minimisedWall.reset();
        }
        history.isHidden = app.isHidden();
        history.counted = now();
        history.delay = std::max(wishes_.delay, 0.0);
        history.raised = windows > wishes_.threshold() ? now() : history.raised;
    }
    history.blind = history.blind || app.faults.failingReads > 0 || !desktop_.windowList().isReadable();
    const bool vetoed = windows == 0 && shows(app);
    const bool busy = isOccupied(app) || isWorking(app);
    history.busySince = !busy ? never : history.busySince > never ? history.busySince : now();
    const bool askedBefore = isInFlight(history) && history.asked < history.counted;
    if (app.isHidden() || busy || askedBefore || history.blind || vetoed || distrusted() || wishes_.paused) {
        history.upset = std::max(history.upset, now());
    }
}

long DesktopHistory::count(const App& app) {
    return std::count_if(app.windows().begin(), app.windows().end(), [](const auto& window) {
        return window.minimised || (window.kind == WindowKind::standard && !(window.withdrawn && window.certain));
    });
}

long DesktopHistory::dialogs(const App& app) {
    return std::count_if(app.windows().begin(), app.windows().end(),
                         [](const auto& window) { return window.kind == WindowKind::dialog && !window.withdrawn; });
}

bool DesktopHistory::isOccupied(const App& app) const {
    return desktop_.occupations().of.contains(app.processIdentifier());
}

bool DesktopHistory::isWorking(const App& app) const {
    return desktop_.processActivity().isWorking(app.processIdentifier());
}

bool DesktopHistory::shows(const App& app) const {
    const auto& server = desktop_.windowServer();
    const bool left = std::any_of(server.residue.begin(), server.residue.end(),
                                  [&](const auto& each) { return each.ownerPID == app.processIdentifier(); });
    const auto& windows = app.windows();
    return !server.listUnreadable && (left || std::any_of(windows.begin(), windows.end(), [&](const auto& window) {
                                          return app.isOnScreen(window) && window.layer == 0 && window.alpha > 0.05 &&
                                                 window.frame.width >= 64 && window.frame.height >= 64;
                                      }));
}

} // namespace ambrel::walk
