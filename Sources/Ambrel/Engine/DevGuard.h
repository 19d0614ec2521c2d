#pragma once

#include "Core/Logger.h"
#include "Engine/TerminationAudit.h"

namespace ambrel {

class Platform;

/// The gate that each termination passes. In shadow mode nothing is terminated, in dev mode only what stands on a
/// whitelist; the decisions log then says what would have been.
class DevGuard {
public:
    [[nodiscard]] static DevGuard& shared();

    DevGuard(Platform& platform, TerminationAudit& audit) : platform_(platform), audit_(audit) {}

    /// Dev mode is on.
    [[nodiscard]] bool isActive() const;
    /// True means that the caller may go on to terminate. A refusal has written its own line.
    [[nodiscard]] bool mayTerminate(const RunningApplication& app, TerminationAudit::Path path);

private:
    Platform& platform_;
    TerminationAudit& audit_;
    Logger log_{"devguard"};
};

} // namespace ambrel
