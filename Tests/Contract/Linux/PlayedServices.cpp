#include "Contract/Linux/PlayedServices.h"

#include <QDBusMessage>

namespace ambrel {

namespace {

const QString connectionName = QStringLiteral("played-services");
const QString screenSaver = QStringLiteral("org.freedesktop.ScreenSaver");
const QString screenSaverPath = QStringLiteral("/ScreenSaver");
const QString notifications = QStringLiteral("org.freedesktop.Notifications");
const QString notificationsPath = QStringLiteral("/org/freedesktop/Notifications");

} // namespace

PlayedServices::PlayedServices() : bus_(QDBusConnection::connectToBus(QDBusConnection::SessionBus, connectionName)) {
    for (const auto& path : {screenSaverPath, notificationsPath}) {
        bus_.registerVirtualObject(path, this);
    }
}

PlayedServices::~PlayedServices() {
    QDBusConnection::disconnectFromBus(connectionName);
}

void PlayedServices::setScreenSaver(bool on) {
    screenSaverIsOn_ = on;
    bus_.registerService(screenSaver);
    bus_.send(QDBusMessage::createSignal(screenSaverPath, screenSaver, "ActiveChanged") << on);
}

void PlayedServices::startNotifications() {
    bus_.registerService(notifications);
}

void PlayedServices::useNotification(const QString& action) {
    bus_.send(QDBusMessage::createSignal(notificationsPath, notifications, "ActionInvoked")
              << lastNotification_ << action);
}

bool PlayedServices::handleMessage(const QDBusMessage& message, const QDBusConnection& bus) {
    if (message.member() == "GetActive") {
        return bus.send(message.createReply(screenSaverIsOn_));
    }
    if (message.member() == "GetCapabilities") {
        return bus.send(message.createReply(QStringList{"actions"}));
    }
    if (message.member() == "Notify") {
        return bus.send(message.createReply(++lastNotification_));
    }
    return bus.send(message.createReply());
}

} // namespace ambrel
