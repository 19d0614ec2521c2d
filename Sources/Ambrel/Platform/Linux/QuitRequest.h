#pragma once

#include "Core/Lifetime.h"
#include "Platform/RunningApplication.h"

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>

class QDBusMessage;

namespace ambrel {

class Process;
class SessionBus;

/// Where an application says that it exports its actions.
struct QuitActionAddress {
    std::string busName;    ///< a unique name, like ":1.42"
    std::string objectPath; ///< the application's object, like "/org/gnome/TextEditor"
};

/// Asks processes that have no window left to end: by their own "quit" action where they export one, else by one
/// SIGTERM. Main thread only.
class QuitRequest {
public:
    /// `bus` must outlive this object.
    explicit QuitRequest(SessionBus& bus);

    struct Callbacks {
        std::function<bool()> lastLook; ///< called right before anything is sent; only true lets it go
        std::function<void(QuitOutcome)> done;
    };

    /// Returns at once; a bus or an application that doesn't answer is given up after a few seconds. SIGTERM is
    /// sent once in the life of a process at most, and never to one whose action was called.
    void quit(const std::shared_ptr<Process>& process, std::optional<QuitActionAddress> address,
              const Callbacks& callbacks);

private:
    using ProcessRef = std::shared_ptr<Process>;
    using Answer = std::function<void(const QDBusMessage&)>;
    struct Progress {
        bool asking = false; ///< a conversation is under way
        bool asked = false;  ///< the action was called, or SIGTERM sent
    };

    void checkOwner(const ProcessRef& process, const QuitActionAddress& address, const Callbacks& callbacks);
    void checkAction(const ProcessRef& process, const QuitActionAddress& address, const Callbacks& callbacks);
    void activate(const ProcessRef& process, const QuitActionAddress& address, const Callbacks& callbacks);
    void sendSignal(const ProcessRef& process, const Callbacks& callbacks);
    [[nodiscard]] QuitOutcome signalOnce(const ProcessRef& process, const Callbacks& callbacks);
    void ask(const QDBusMessage& question, Answer answer);

    SessionBus& bus_;
    std::map<std::weak_ptr<Process>, Progress, std::owner_less<>> progress_;
    Lifetime lifetime_;
};

} // namespace ambrel
