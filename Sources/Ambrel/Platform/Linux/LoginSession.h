#pragma once

#include "Core/Signal.h"
#include "Platform/Linux/BusService.h"

#include <optional>
#include <string>

namespace ambrel {

/// This process's login session, and the machine's sleep, in the words of logind.
class LoginSession {
public:
    /// Asks at once. `systemBus` must outlive this object.
    explicit LoginSession(AsyncBus& systemBus);
    LoginSession(const LoginSession&) = delete;
    LoginSession& operator=(const LoginSession&) = delete;

    /// Reads everything afresh; what is read comes as news.
    void ask();
    [[nodiscard]] const std::string& name() const { return service_.name(); }
    /// Whether the session is the one in front. Absent until logind has said it.
    [[nodiscard]] std::optional<bool> isActive() const { return active_; }

    Signal<bool> locked; ///< heard, whether it is new or not
    Signal<> activeChanged;
    Signal<bool> preparesForSleep;    ///< false: it has woken
    Signal<bool> preparesForShutdown; ///< false: it was called off
    Signal<> vanished;

private:
    void forward(const char* signal, const Signal<bool>& news);
    void readProperties(sd_bus_message* message);
    void propertiesChanged(sd_bus_message* message);

    BusService service_;
    std::string path_; ///< empty until logind has named our session
    std::optional<bool> active_;
    Subscription appeared_;
    Subscription gone_;
};

} // namespace ambrel
