#include "Platform/Linux/SessionBus.h"

#include <condition_variable>
#include <filesystem>
#include <mutex>
#include <string>
#include <thread>

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

struct SessionBus::Attempt {
    std::mutex mutex;
    std::condition_variable changed;
    bool ended = false;
    std::optional<QDBusConnection> connection;

    void run(const QString& address) {
        auto opened = QDBusConnection::connectToBus(address, QUuid::createUuid().toString());
        const std::lock_guard lock(mutex);
        if (opened.isConnected()) {
            connection = std::move(opened);
        }
        ended = true;
        changed.notify_all();
    }
};

SessionBus::SessionBus() = default;

SessionBus::~SessionBus() {
    if (const auto bus = connection()) {
        QDBusConnection::disconnectFromBus(bus->name());
    }
}

std::optional<QDBusConnection> SessionBus::connection(Seconds limit) {
    const auto address = attempt_ ? QString() : sessionBusAddress();
    if (!attempt_) {
        attempt_ = std::make_shared<Attempt>();
        attempt_->ended = address.isEmpty();
        if (!address.isEmpty()) {
            std::thread([attempt = attempt_, address] { attempt->run(address); }).detach();
        }
    }
    std::unique_lock lock(attempt_->mutex);
    attempt_->changed.wait_for(lock, limit, [this] { return attempt_->ended; });
    return attempt_->connection;
}

} // namespace ambrel
