#pragma once

#include "Platform/NotificationCenter.h"

namespace ambrel::simulated {

class VirtualMainQueue;

/// Keeps what is shown, and answers as the user does.
class SimulatedNotificationCenter final : public NotificationCenter {
public:
    explicit SimulatedNotificationCenter(VirtualMainQueue& queue) : queue_(queue) {}

    void setDelegate(std::function<void(const NotificationResponse&)> delegate) override;
    void setCategories(std::vector<NotificationCategory> value) override { categories = std::move(value); }
    void requestAuthorization(std::function<void(bool, NotificationFailure)> completion) override;
    void add(NotificationRequest request, std::function<void(NotificationFailure)> completion) override;

    /// The user acts on a notification that is shown.
    void respond(const NotificationRequest& request, const std::string& actionIdentifier);

    std::vector<NotificationCategory> categories;
    std::vector<NotificationRequest> shown;
    int authorizationRequests = 0;
    bool granted = true;
    NotificationFailure failure; ///< what every request answers

private:
    VirtualMainQueue& queue_;
    std::function<void(const NotificationResponse&)> delegate_;
};

} // namespace ambrel::simulated
