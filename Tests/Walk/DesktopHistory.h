#pragma once

#include "Platform/Simulated/SimulatedPlatform.h"
#include "Walk/Wishes.h"

#include <map>

namespace ambrel::walk {

using App = simulated::SimulatedApplication;

constexpr double never = -1e18;
/// How long a minimised or hidden window speaks against a quit.
constexpr double minimiseGrace = 2;

/// What happened to one application. Times are seconds that pass, whatever the wall clock does.
struct AppHistory {
    long count = 0;   ///< windows in the sense of the rule
    long dialogs = 0; ///< open ones
    bool isHidden = false;
    double counted = never;              ///< when one of these last changed
    double delay = 0;                    ///< the user's delay at that time
    double known = never;                ///< when it was first seen
    double above = never;                ///< the last moment with more windows than the threshold
    double raised = never;               ///< when the number last rose or fell to one above the threshold
    double upset = never;                ///< until then something held a quit back
    double minimised = never;            ///< the last time a window was minimised or the application hidden
    double hidden = never;               ///< the last time it hid
    double hideDelay = 0;                ///< the user's delay at that time
    bool hidWillingly = false;           ///< all that allows a quit was so when it hid
    double busySince = never;            ///< it has worked or been occupied since then; never while it isn't
    bool blind = false;                  ///< its windows could not always be read
    double asked = never;                ///< when it was last asked to quit; never again once that request is over
    std::optional<Date> minimisedWall{}; ///< by the wall clock
    std::optional<double> touched{};     ///< the last time it was known to be in use
};

/// Remembers what the desktop and its user did, from the desktop's own events and the true state of its windows.
class DesktopHistory {
public:
    DesktopHistory(simulated::SimulatedPlatform& desktop, const Wishes& wishes);

    void ambrelStarted();
    /// To be called after every change of the wishes.
    void wishesChanged();
    void shiftWallClock(double span);
    /// To be called when verbs have changed the desktop, before time passes.
    void look();

    [[nodiscard]] AppHistory& of(const RunningApplication& app);
    [[nodiscard]] Date wall() const { return desktop_.mainQueue().now(); }
    [[nodiscard]] double now() const { return wall().time_since_epoch().count() - shift_; }
    [[nodiscard]] bool distrusted() const { return locked_ || asleep_ || away_; }
    [[nodiscard]] static long count(const App& app);
    [[nodiscard]] static long dialogs(const App& app);
    [[nodiscard]] bool isOccupied(const App& app) const;
    [[nodiscard]] bool isWorking(const App& app) const;
    /// A request to quit lasts a minute, unless a window comes or the window manager goes.
    [[nodiscard]] bool isInFlight(const AppHistory& history) const { return now() < history.asked + 60; }
    /// The window server shows something that can be a window of this application.
    [[nodiscard]] bool shows(const App& app) const;

    double begun = never;     ///< when Ambrel last had to begin anew: its start, a wake, trust that came back
    double calm = never;      ///< until then something held every quit back
    double turned = never;    ///< when the threshold was last changed
    double paused = never;    ///< the last moment of a pause
    double untrusted = never; ///< the last moment with a count not to be trusted

private:
    void setDistrust(bool& flag, bool value);
    void beginAnew();
    void didHide(const RunningApplication& app);
    void note(ProcessId pid, WindowEvent event);
    void readableChanged(bool readable);
    void look(const App& app, AppHistory& history);

    simulated::SimulatedPlatform& desktop_;
    const Wishes& wishes_;
    std::map<const RunningApplication*, AppHistory> histories_;
    double shift_ = 0;
    long threshold_ = 0;
    bool locked_ = false;
    bool asleep_ = false;
    bool away_ = false;
    std::vector<Subscription> notes_;
};

} // namespace ambrel::walk
