/// A notification daemon. Its arguments are its capabilities. Prints one line for each notification:
/// "ID|TITLE|BODY|ACTIONS|ENTRY". Its method Emit sends the signal of that name with the other arguments. The first id
/// of each process is 1.
#include <cstdio>

#include <QCoreApplication>
#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QVariantMap>

namespace {

class Notifications : public QDBusVirtualObject {
public:
    [[nodiscard]] QString introspect(const QString&) const override { return {}; }

    bool handleMessage(const QDBusMessage& message, const QDBusConnection& bus) override {
        if (message.member() == "GetCapabilities") {
            return bus.send(message.createReply(QCoreApplication::arguments().mid(1)));
        }
        if (message.member() == "Notify") {
            return message.signature() == "susssasa{sv}i" && bus.send(message.createReply(show(message.arguments())));
        }
        if (message.member() == "Emit") {
            emitSignal(message, bus);
        }
        return bus.send(message.createReply());
    }

private:
    unsigned show(const QVariantList& arguments) {
        const auto hints = qdbus_cast<QVariantMap>(arguments[6]);
        const QStringList line{QString::number(++lastId_), arguments[3].toString(), arguments[4].toString(),
                               arguments[5].toStringList().join(','), hints["desktop-entry"].toString()};
        std::puts(qPrintable(line.join('|')));
        std::fflush(stdout);
        return lastId_;
    }

    static void emitSignal(const QDBusMessage& message, const QDBusConnection& bus) {
        auto signal =
            QDBusMessage::createSignal(message.path(), message.interface(), message.arguments()[0].toString());
        signal.setArguments(message.arguments().mid(1));
        [[maybe_unused]] const bool sent = bus.send(signal);
    }

    unsigned lastId_ = 0;
};

} // namespace

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    auto bus = QDBusConnection::sessionBus();
    Notifications notifications;
    bus.registerVirtualObject("/org/freedesktop/Notifications", &notifications);
    bus.registerService("org.freedesktop.Notifications");
    std::puts("ready");
    std::fflush(stdout);
    return QCoreApplication::exec();
}
