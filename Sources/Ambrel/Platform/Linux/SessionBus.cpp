#include "Platform/Linux/SessionBus.h"

#include "Platform/Linux/AsyncBus.h"

#include <filesystem>
#include <string>

#include <QUuid>

namespace ambrel {

namespace {

/// Without an address the D-Bus library would start a bus of its own.
QString sessionBusAddress() {
    if (qEnvironmentVariableIsSet("DBUS_SESSION_BUS_ADDRESS")) {
        return qEnvironmentVariable("DBUS_SESSION_BUS_ADDRESS");
    }
    const auto socket = qEnvironmentVariable("XDG_RUNTIME_DIR") + "/bus";
    std::error_code error;
    return std::filesystem::is_socket(socket.toStdString(), error) ? "unix:path=" + socket : QString();
}

} // namespace

SessionBus::SessionBus() = default;

SessionBus::~SessionBus() {
    if (connection_) {
        QDBusConnection::disconnectFromBus(connection_->name());
    }
}

std::optional<QDBusConnection> SessionBus::connection(Seconds limit) {
    if (!asked_) {
        ask();
    }
    AsyncBus::settle({probe_.get()}, limit);
    if (answered_) {
        open();
    }
    return connection_;
}

void SessionBus::ask() {
    asked_ = true;
    probe_ = AsyncBus::open(AsyncBus::Kind::session);
    if (!probe_) {
        return;
    }
    probe_->call({"org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus", "GetId", {}},
                 [this](sd_bus_message*) {
                     answered_ = true;
                     // The probe can't end in its own call.
                     QMetaObject::invokeMethod(
                         &later_, [this] { open(); }, Qt::QueuedConnection);
                 });
}

void SessionBus::open() {
    if (!probe_) {
        return;
    }
    probe_.reset();
    auto connection = QDBusConnection::connectToBus(sessionBusAddress(), QUuid::createUuid().toString());
    if (connection.isConnected()) {
        connection_ = std::move(connection);
        opened.emit();
    }
}

} // namespace ambrel
