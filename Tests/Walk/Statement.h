#pragma once

#include "Walk/DecisionsTail.h"
#include "Walk/DesktopHistory.h"

#include <functional>

namespace ambrel::walk {

/// When an application may be asked to quit or to hide, and when it must be asked: told from the desktop's history and
/// the user's wishes, by someone who doesn't know how Ambrel works.
class Statement {
public:
    Statement(simulated::SimulatedPlatform& desktop, const Wishes& wishes, DesktopHistory& history);

    /// Ambrel runs afresh and writes its decisions to `tail`; `drain` returns when all are written.
    void ambrelStarted(DecisionsTail* tail, std::function<void()> drain);
    /// To be called whenever time has passed.
    void look();
    /// To be called before Ambrel ends.
    void finish();

    bool quittingAll = false;    ///< the user's Quit All is being carried out
    double quitAllAsked = never; ///< and when it last was
    std::string broken;          ///< the first claim that did not hold
    long due = 0;                ///< quits that had to come, and came

private:
    /// An application is watched this long after it could first be.
    static constexpr double attachment = 0.6;

    void requested(ProcessId pid, const std::string& deed);
    void judge(const App& app, const std::string& path, bool hides);
    void judgeAny(const App& app);
    void judgeLastWindow(const App& app, const AppHistory& history);
    void judgeHidden(const App& app, const AppHistory& history);
    void judgeIdle(const App& app, const AppHistory& history, bool hides);
    void judgeQuitAll(const App& app);
    // When it must be asked.
    void judgeLiveness(const App& app, const AppHistory& history);
    /// By whatever path.
    [[nodiscard]] double lastAsked(const App& app) const;
    [[nodiscard]] bool mustQuit(const App& app, const AppHistory& history) const;
    void claim(bool holds, const App& app, const char* otherwise);
    [[nodiscard]] const AppRule& wishFor(const App& app) const;

    simulated::SimulatedPlatform& desktop_;
    const Wishes& wishes_;
    DesktopHistory& history_;
    DecisionsTail* tail_ = nullptr;
    std::function<void()> drain_;
    std::map<std::string, std::map<const App*, double>> asked_; ///< by path, the last time
    std::map<const App*, double> due_;                          ///< closings already counted
    std::vector<Subscription> notes_;
};

} // namespace ambrel::walk
