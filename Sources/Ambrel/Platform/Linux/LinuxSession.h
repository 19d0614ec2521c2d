#pragma once

#include "Platform/Linux/LockVerdict.h"
#include "Platform/Linux/X11DisplaySleep.h"
#include "Platform/Linux/X11ScreenLocker.h"
#include "Platform/Session.h"

#include <memory>
#include <string>
#include <vector>

namespace ambrel {

class AsyncBus;
class LoginSession;
class ScreenSaverService;
class SessionManagers;

/// The session as logind, the screen savers and session managers of the session bus and the X server tell it.
class LinuxSession final : public Session {
public:
    /// All must outlive this object.
    LinuxSession(X11Connection& connection, const X11WindowMirror& mirror, MainQueue& queue);
    ~LinuxSession() override;

    /// Waits for first answers, 1.5 s at most; what comes later is an event.
    void start() override;
    /// What is known at this moment; nothing before `start`. Never waits.
    [[nodiscard]] std::optional<SessionFacts> current() const override;

private:
    void watchLogin();
    void watchScreenSavers();
    void watchSessionManagers();
    void watchDisplays();
    void watchLosses();
    void reportSilence() const;
    void setEnding(bool& voice, bool ending);
    void hear(const std::string& service, bool locked);
    void mourn(const std::string& service);
    void announce();
    [[nodiscard]] std::optional<bool> isLocked() const;
    [[nodiscard]] bool isAway() const;

    X11DisplaySleep displays_;
    X11ScreenLocker locker_;
    std::unique_ptr<AsyncBus> systemBus_;
    std::unique_ptr<AsyncBus> sessionBus_;
    std::unique_ptr<LoginSession> login_;
    std::vector<std::unique_ptr<ScreenSaverService>> screenSavers_;
    std::unique_ptr<SessionManagers> managers_;
    bool heardScreenSaver_ = false;
    LockVerdict lock_;
    bool machineEnds_ = false;
    bool sessionEnds_ = false;
    bool settling_ = true;
    // As announced.
    bool isLocked_ = false;
    bool isAway_ = false;
    bool isAsleep_ = false;
    bool isEnding_ = false;
    std::vector<Subscription> subscriptions_;
};

} // namespace ambrel
