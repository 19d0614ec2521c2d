#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace ambrel {

struct NotificationAction {
    std::string identifier;
    std::string title;
};

/// The kinds of notifications there are, each with its buttons.
struct NotificationCategory {
    std::string identifier;
    std::vector<NotificationAction> actions;
};

struct NotificationRequest {
    std::string identifier; ///< another one for each notification, so that none replaces an earlier one
    std::string title;
    std::string body;
    std::string categoryIdentifier;
    std::map<std::string, std::string> userInfo; ///< comes back with the response
};

/// What the user did with a notification.
struct NotificationResponse {
    /// The action that a click on the notification itself stands for.
    static constexpr const char* defaultAction = "default";

    std::string actionIdentifier;
    std::map<std::string, std::string> userInfo;
};

/// Why something could not be done, in words; absent when it was done.
using NotificationFailure = std::optional<std::string>;

/// The desktop's notifications. Requests may be made on any thread; everything is answered on the main thread.
class NotificationCenter {
public:
    virtual ~NotificationCenter() = default;

    virtual void setDelegate(std::function<void(const NotificationResponse&)> delegate) = 0;
    virtual void setCategories(std::vector<NotificationCategory> categories) = 0;
    /// Answers whether notifications will be shown, or why that could not be learned.
    virtual void requestAuthorization(std::function<void(bool granted, NotificationFailure failure)> completion) = 0;
    /// Shows a notification at once.
    virtual void add(NotificationRequest request, std::function<void(NotificationFailure failure)> completion) = 0;
};

} // namespace ambrel
