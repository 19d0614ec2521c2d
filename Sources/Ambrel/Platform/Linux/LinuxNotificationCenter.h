#pragma once

#include "Platform/NotificationCenter.h"

namespace ambrel {

class MainQueue;
class SessionBus;

/// The notification daemon of the session bus.
class LinuxNotificationCenter final : public NotificationCenter {
public:
    /// Both must outlive this object.
    LinuxNotificationCenter(SessionBus& bus, MainQueue& queue) : bus_(bus), queue_(queue) {}

    void setDelegate(std::function<void(const NotificationResponse&)> delegate) override;
    void setCategories(std::vector<NotificationCategory> categories) override;
    void requestAuthorization(std::function<void(bool, NotificationFailure)> completion) override;
    void add(NotificationRequest request, std::function<void(NotificationFailure)> completion) override;

private:
    [[maybe_unused]] SessionBus& bus_;
    [[maybe_unused]] MainQueue& queue_;
};

} // namespace ambrel
