#include "Platform/Linux/LinuxNotificationCenter.h"

namespace ambrel {

void LinuxNotificationCenter::setDelegate(std::function<void(const NotificationResponse&)>) {}
void LinuxNotificationCenter::setCategories(std::vector<NotificationCategory>) {}
void LinuxNotificationCenter::requestAuthorization(std::function<void(bool, NotificationFailure)>) {}
void LinuxNotificationCenter::add(NotificationRequest, std::function<void(NotificationFailure)>) {}

} // namespace ambrel
