#pragma once

#include "Core/Lifetime.h"
#include "Core/Logger.h"
#include "Core/MainQueue.h"
#include "Engine/TerminationAudit.h"
#include "Platform/WindowList.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

namespace ambrel {

class Platform;
class QuitNotifier;

/// Asks applications to quit, and writes each decision down when it is carried out. An application is asked once at a
/// time, whoever asks: the request lasts until the process ends, shows a new window, can't be seen any more, or a
/// minute has passed. Main thread only.
class QuitRequests {
public:
    struct Request {
        RunningApplicationRef app;
        TerminationAudit::Path path;
        std::string detail = {};
        /// The facts that may have changed since the decision, looked at right before anything is sent.
        std::function<bool()> stillHolds = [] {
            return true;
        };
        /// Says in the asker's log what is sent.
        std::function<void()> willSend;
        /// What held when the request was made didn't any more when it was to be sent.
        std::function<void()> wasDropped = [] {
        };
        bool notifies = false;
    };

    [[nodiscard]] static QuitRequests& shared();

    QuitRequests(Platform& platform, TerminationAudit& audit, QuitNotifier& notifier);

    /// Nothing is sent, and no decision written, where the application was asked already or `stillHolds` is false.
    void ask(const Request& request);
    /// The path by which the process was asked a short time ago.
    [[nodiscard]] std::optional<TerminationAudit::Path> inFlight(ProcessId pid) const;

private:
    struct Flight {
        TerminationAudit::Path path = TerminationAudit::Path::lastWindow;
        Subscription windows;
        WorkItemRef lapse;
    };

    std::shared_ptr<Flight> begin(const Request& request);
    void send(const Request& request, const std::shared_ptr<Flight>& flight);
    void settle(const Request& request, const std::weak_ptr<Flight>& flight, QuitOutcome outcome);
    void end(ProcessId pid);

    Platform& platform_;
    TerminationAudit& audit_;
    QuitNotifier& notifier_;
    Logger log_{"engine"};
    std::unordered_map<ProcessId, std::shared_ptr<Flight>> flights_;
    std::vector<Subscription> observers_;
    Lifetime lifetime_;
};

} // namespace ambrel
