#pragma once

#include "Core/Logger.h"
#include "Platform/RunningApplication.h"

#include <vector>

namespace ambrel {

class AppRulesStore;
class DevGuard;
class Platform;
class QuitRequests;
class TerminationAudit;

/// Asks every ordinary application to quit, in one go, on the user's command. Main thread only.
class QuitAll {
public:
    [[nodiscard]] static QuitAll& shared();

    QuitAll(Platform& platform, const AppRulesStore& rules, DevGuard& guard, TerminationAudit& audit,
            QuitRequests& requests);

    /// The applications that `run` would address now.
    [[nodiscard]] std::vector<RunningApplicationRef> eligibleApps() const;
    /// The number of eligible applications; with `force`, they are not asked but ended. Waits for none of them.
    int run(bool force);

private:
    [[nodiscard]] bool isEligible(const RunningApplication& app) const;
    void quit(const RunningApplicationRef& app);
    void end(RunningApplication& app);

    Platform& platform_;
    const AppRulesStore& rules_;
    DevGuard& guard_;
    TerminationAudit& audit_;
    QuitRequests& requests_;
    Logger log_{"engine"};
};

} // namespace ambrel
