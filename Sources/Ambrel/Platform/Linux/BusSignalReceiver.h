#pragma once

#include <functional>
#include <utility>

#include <QDBusMessage>
#include <QObject>

namespace ambrel {

/// Where Qt delivers signals of a bus, `SLOT(receive(QDBusMessage))`: its connections know no other way than a slot by
/// name.
class BusSignalReceiver final : public QObject {
    Q_OBJECT

public:
    explicit BusSignalReceiver(std::function<void(const QDBusMessage&)> handler) : handler_(std::move(handler)) {}

public Q_SLOTS:
    void receive(const QDBusMessage& message) { handler_(message); }

private:
    std::function<void(const QDBusMessage&)> handler_;
};

} // namespace ambrel
