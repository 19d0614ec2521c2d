#include "Platform/Linux/ProgramPresence.h"

#include "Core/Logger.h"
#include "Platform/Linux/SessionBus.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusVirtualObject>

#include <unistd.h>

namespace ambrel {

namespace {

constexpr Logger logger("lifecycle");
constexpr Seconds busLimit(1.5);
constexpr int answerLimitMilliseconds = 1500;
constexpr unsigned doNotQueue = 4;
const QString programName = QStringLiteral("app.ambrel.Ambrel");
const QString programPath = QStringLiteral("/app/ambrel/Ambrel");
const QString applicationInterface = QStringLiteral("org.freedesktop.Application");

QDBusMessage busCall(const QString& method) {
    return QDBusMessage::createMethodCall("org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus",
                                          method);
}

} // namespace

/// Answers to org.freedesktop.Application.
class ProgramPresence::ApplicationObject : public QDBusVirtualObject {
public:
    explicit ApplicationObject(Signal<>& didReopen) : didReopen_(didReopen) {}

    [[nodiscard]] QString introspect(const QString&) const override {
        return QStringLiteral(R"(<interface name="org.freedesktop.Application">
  <method name="Activate"><arg type="a{sv}" direction="in"/></method>
  <method name="Open"><arg type="as" direction="in"/><arg type="a{sv}" direction="in"/></method>
  <method name="ActivateAction">
    <arg type="s" direction="in"/><arg type="av" direction="in"/><arg type="a{sv}" direction="in"/>
  </method>
</interface>
)");
    }

    bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override {
        static const QStringList methods{"Activate", "Open", "ActivateAction"};
        if (message.interface() != applicationInterface || !methods.contains(message.member())) {
            return false;
        }
        connection.send(message.createReply());
        if (launched_) {
            didReopen_.emit();
        }
        return true;
    }

    /// Calls that the bus kept for this process until it had its name come before the answer to this question.
    void ignoreCallsBefore(const QDBusPendingCall& question) {
        auto* const watcher = new QDBusPendingCallWatcher(question, this);
        connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher] {
            watcher->deleteLater();
            launched_ = true;
        });
    }

private:
    Signal<>& didReopen_;
    bool launched_ = false;
};

ProgramPresence::ProgramPresence(SessionBus& bus) : bus_(bus) {
    if (bus_.connection(busLimit)) {
        claim();
    } else {
        logger.error("no session bus answers: other copies of Ambrel can't be seen, and it can't be opened again, "
                     "until one does");
        opened_ = bus_.opened.subscribe([this] { claim(); });
    }
}

void ProgramPresence::claim() {
    auto connection = bus_.connection();
    object_ = std::make_unique<ApplicationObject>(didReopen);
    connection->registerVirtualObject(programPath, object_.get());
    connection->call(busCall("RequestName") << programName << doNotQueue, QDBus::Block, answerLimitMilliseconds);
    object_->ignoreCallsBefore(connection->asyncCall(busCall("GetId"), answerLimitMilliseconds));
}

ProgramPresence::~ProgramPresence() {
    if (auto connection = bus_.connection(); connection && object_) {
        connection->unregisterObject(programPath);
    }
}

std::vector<ProcessId> ProgramPresence::otherInstances() const {
    const auto connection = bus_.connection();
    if (!connection) {
        return {};
    }
    const auto reply =
        connection->call(busCall("GetConnectionUnixProcessID") << programName, QDBus::Block, answerLimitMilliseconds);
    if (reply.type() != QDBusMessage::ReplyMessage || reply.arguments().isEmpty()) {
        return {};
    }
    const auto owner = static_cast<ProcessId>(reply.arguments().constFirst().toUInt());
    return owner == getpid() ? std::vector<ProcessId>() : std::vector{owner};
}

} // namespace ambrel
