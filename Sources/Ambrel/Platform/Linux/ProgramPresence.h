#pragma once

#include "Core/Signal.h"
#include "Platform/RunningApplication.h"

#include <memory>
#include <vector>

namespace ambrel {

class SessionBus;

/// This program's own name on the session bus: at most one copy holds it, and opening the program again reaches
/// that copy. Without a bus there is one log line and nothing else; a bus that answers late is used then. Main thread
/// only.
class ProgramPresence {
public:
    /// Claims the name; waits for the bus up to 1.5 s. `bus` must outlive this object.
    explicit ProgramPresence(SessionBus& bus);
    ProgramPresence(const ProgramPresence&) = delete;
    ProgramPresence& operator=(const ProgramPresence&) = delete;
    ~ProgramPresence();

    /// The process of another copy that holds the name at this moment.
    [[nodiscard]] std::vector<ProcessId> otherInstances() const;

    /// The program was opened again. An activation by which the bus started this very process is no reopening.
    Signal<> didReopen;

private:
    class ApplicationObject;

    void claim();

    SessionBus& bus_;
    std::unique_ptr<ApplicationObject> object_;
    Subscription opened_;
};

} // namespace ambrel
