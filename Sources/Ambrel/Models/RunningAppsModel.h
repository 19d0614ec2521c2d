#pragma once

#include "Core/Lifetime.h"
#include "Core/Logger.h"
#include "Core/Observable.h"
#include "Models/Collation.h"
#include "Platform/RunningApplication.h"

#include <set>
#include <string>
#include <vector>

namespace ambrel {

class AppRulesStore;
class DevGuard;
class Platform;
class QuitRequests;
class TerminationAudit;

/// The ordinary applications that run, and what the user does to them by hand. The list is that of the last refresh:
/// at the beginning, and shortly after each quit. Main thread only.
class RunningAppsModel {
public:
    struct Neighbours {
        DevGuard& guard;
        TerminationAudit& audit;
        QuitRequests& requests;
        AppRulesStore& rules;
    };

    RunningAppsModel(Platform& platform, Neighbours neighbours);

    void refresh();
    /// The listed applications that the search text lets through.
    [[nodiscard]] std::vector<RunningApplicationRef> filtered() const;
    void toggleSelected(ProcessId pid);

    /// Asks the application to quit or ends it, unless the guard forbids that.
    void quit(const RunningApplicationRef& app, bool force);
    /// Also those that the search hides.
    void quitSelected();
    /// Gives the application a rule that spares it, in the place of any other. It needs an identifier for that.
    void addToExcludeList(const RunningApplication& app);

    Observable<std::string> query;
    /// By name, in the order of the user's language.
    Observable<std::vector<RunningApplicationRef>> apps;
    Observable<std::set<ProcessId>> selected;

private:
    [[nodiscard]] bool isListed(const RunningApplication& app) const;
    [[nodiscard]] std::vector<RunningApplicationRef> sorted(std::vector<RunningApplicationRef> found) const;
    void forgetGoneSelections();
    void ask(const RunningApplicationRef& app);
    void end(RunningApplication& app);

    Platform& platform_;
    Neighbours neighbours_;
    Collation collation_;
    Logger log_{"engine"};
    Lifetime lifetime_;
};

} // namespace ambrel
