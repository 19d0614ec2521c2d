#include "Platform/Simulated/SimulatedNotificationCenter.h"

#include "Platform/Simulated/VirtualMainQueue.h"

#include <utility>

namespace ambrel::simulated {

void SimulatedNotificationCenter::setDelegate(std::function<void(const NotificationResponse&)> delegate) {
    delegate_ = std::move(delegate);
}

void SimulatedNotificationCenter::requestAuthorization(std::function<void(bool, NotificationFailure)> completion) {
    ++authorizationRequests;
    queue_.async([this, completion = std::move(completion)] { completion(granted && !failure, failure); });
}

void SimulatedNotificationCenter::add(NotificationRequest request,
                                      std::function<void(NotificationFailure)> completion) {
    if (!failure) {
        shown.push_back(std::move(request));
    }
    queue_.async([this, completion = std::move(completion)] { completion(failure); });
}

void SimulatedNotificationCenter::respond(const NotificationRequest& request, const std::string& actionIdentifier) {
    queue_.async([this, response = NotificationResponse{actionIdentifier, request.userInfo}] {
        if (delegate_) {
            delegate_(response);
        }
    });
}

} // namespace ambrel::simulated
