/// An application on the session bus; its arguments are its actions. Prints its unique name first, then one line for
/// each call of an action and each SIGTERM ("SIGTERM"); SIGWINCH prints "done".
#include <csignal>
#include <cstring>

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>

#include <unistd.h>

namespace {

void print(const char* text) {
    [[maybe_unused]] const auto written = write(STDOUT_FILENO, text, std::strlen(text));
}

void report(int number) {
    print(number == SIGTERM ? "SIGTERM\n" : "done\n");
}

/// Signals come to this thread alone, so that they are reported in their order; started with them blocked, the
/// threads of the D-Bus library stay without.
void reportSignals(int how) {
    struct sigaction action {};
    action.sa_handler = report;
    sigfillset(&action.sa_mask);
    sigaction(SIGTERM, &action, nullptr);
    sigaction(SIGWINCH, &action, nullptr);
    pthread_sigmask(how, &action.sa_mask, nullptr);
}

class Actions : public QDBusVirtualObject {
public:
    explicit Actions(QStringList names) : names_(std::move(names)) {}

    [[nodiscard]] QString introspect(const QString&) const override { return {}; }

    bool handleMessage(const QDBusMessage& message, const QDBusConnection& bus) override {
        if (message.interface() != "org.gtk.Actions") {
            return false;
        }
        if (message.member() == "List") {
            return bus.send(message.createReply(names_));
        }
        print(qPrintable(message.signature() + " " + message.arguments().value(0).toString() + "\n"));
        return bus.send(message.createReply());
    }

private:
    QStringList names_;
};

} // namespace

int main(int argc, char** argv) {
    reportSignals(SIG_BLOCK);
    const QCoreApplication application(argc, argv);
    auto bus = QDBusConnection::sessionBus();
    reportSignals(SIG_UNBLOCK);
    Actions actions(QCoreApplication::arguments().mid(1));
    bus.registerVirtualObject("/app", &actions);
    print(qPrintable(bus.baseService() + "\n"));
    return QCoreApplication::exec();
}
