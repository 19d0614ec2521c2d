#include "Platform/Linux/LinuxNotificationCenter.h"

#include "Core/MainQueue.h"
#include "Platform/Linux/BusSignalReceiver.h"
#include "Platform/Linux/SessionBus.h"

#include <algorithm>

#include <QDBusError>
#include <QDBusPendingCallWatcher>
#include <QDBusServiceWatcher>
#include <QVariantMap>

namespace ambrel {

namespace {

const QString service = QStringLiteral("org.freedesktop.Notifications");
const QString path = QStringLiteral("/org/freedesktop/Notifications");
const QString programName = QStringLiteral("Ambrel");
const QString programEntry = QStringLiteral("app.ambrel.Ambrel");
constexpr unsigned replacesNothing = 0;
constexpr int daemonsOwnTimeout = -1;

QDBusMessage methodCall(const char* method) {
    return QDBusMessage::createMethodCall(service, path, service, QLatin1String(method));
}

QVariant argument(const QDBusMessage& message, qsizetype index) {
    return message.type() == QDBusMessage::ErrorMessage ? QVariant() : message.arguments().value(index);
}

NotificationFailure failureOf(const QDBusMessage& reply) {
    if (reply.type() == QDBusMessage::ReplyMessage) {
        return std::nullopt;
    }
    return (reply.errorMessage().isEmpty() ? reply.errorName() : reply.errorMessage()).toStdString();
}

bool saysThatNoDaemonIsThere(const QDBusMessage& reply) {
    return QDBusError(reply).type() == QDBusError::ServiceUnknown;
}

QString bodyText(const NotificationRequest& request, const QStringList& capabilities) {
    const auto text = QString::fromStdString(request.body);
    return capabilities.contains("body-markup") ? text.toHtmlEscaped() : text;
}

} // namespace

LinuxNotificationCenter::LinuxNotificationCenter(SessionBus& bus, MainQueue& queue, Seconds answerLimit)
    : bus_(bus), queue_(queue), answerLimit_(answerLimit) {}

LinuxNotificationCenter::~LinuxNotificationCenter() = default;

void LinuxNotificationCenter::setDelegate(std::function<void(const NotificationResponse&)> delegate) {
    delegate_ = std::move(delegate);
}

void LinuxNotificationCenter::setCategories(std::vector<NotificationCategory> categories) {
    categories_ = std::move(categories);
}

void LinuxNotificationCenter::requestAuthorization(std::function<void(bool, NotificationFailure)> completion) {
    queue_.async(lifetime_.guard([this, completion = std::move(completion)] {
        ask(methodCall("GetServerInformation"), [completion](const QDBusMessage& reply) {
            const auto failure = saysThatNoDaemonIsThere(reply) ? std::nullopt : failureOf(reply);
            completion(reply.type() == QDBusMessage::ReplyMessage, failure);
        });
    }));
}

void LinuxNotificationCenter::add(NotificationRequest request, std::function<void(NotificationFailure)> completion) {
    queue_.async(lifetime_.guard(
        [this, request = std::move(request), completion = std::move(completion)] { show(request, completion); }));
}

/// The capabilities are asked for each time: the daemon may be another one than the last time.
void LinuxNotificationCenter::show(const NotificationRequest& request, const Completion& completion) {
    ask(methodCall("GetCapabilities"), [this, request, completion](const QDBusMessage& reply) {
        if (auto failure = failureOf(reply)) {
            completion(std::move(failure));
        } else {
            notify(request, argument(reply, 0).toStringList(), completion);
        }
    });
}

void LinuxNotificationCenter::notify(const NotificationRequest& request, const QStringList& capabilities,
                                     const Completion& completion) {
    const auto actions = capabilities.contains("actions") ? actionsFor(request.categoryIdentifier) : QStringList();
    auto call = methodCall("Notify");
    call << programName << replacesNothing << programEntry << QString::fromStdString(request.title)
         << bodyText(request, capabilities) << actions << QVariantMap{{"desktop-entry", programEntry}}
         << daemonsOwnTimeout;
    ask(call, [this, request, completion](const QDBusMessage& reply) {
        if (const auto id = argument(reply, 0); id.typeId() == QMetaType::UInt) {
            shown_.insert_or_assign({reply.service().toStdString(), id.toUInt()}, request);
        }
        completion(failureOf(reply));
    });
}

/// Pairs of identifier and title. A click on the notification itself stands for its first button.
QStringList LinuxNotificationCenter::actionsFor(const std::string& categoryIdentifier) const {
    const auto category = std::find_if(categories_.begin(), categories_.end(), [&](const auto& candidate) {
        return candidate.identifier == categoryIdentifier;
    });
    if (category == categories_.end() || category->actions.empty()) {
        return {};
    }
    QStringList pairs{NotificationResponse::defaultAction, QString::fromStdString(category->actions.front().title)};
    for (const auto& action : category->actions) {
        pairs << QString::fromStdString(action.identifier) << QString::fromStdString(action.title);
    }
    return pairs;
}

void LinuxNotificationCenter::received(const QDBusMessage& signal) {
    const auto found = shown_.find({signal.service().toStdString(), argument(signal, 0).toUInt()});
    if (found == shown_.end()) {
        return;
    }
    if (signal.member() == "NotificationClosed") {
        shown_.erase(found);
    } else if (delegate_) {
        // The delegate may come back here.
        const auto userInfo = found->second.userInfo;
        delegate_({argument(signal, 1).toString().toStdString(), userInfo});
    }
}

void LinuxNotificationCenter::ownerChanged(const std::string& owner) {
    std::erase_if(shown_, [&](const auto& entry) { return entry.first.first != owner; });
}

/// The signals of any sender, so that nobody has to wait for the bus to name the owner; which one counts, `received`
/// knows.
void LinuxNotificationCenter::listen(QDBusConnection& bus) {
    if (receiver_) {
        return;
    }
    receiver_ = std::make_unique<BusSignalReceiver>([this](const QDBusMessage& signal) { received(signal); });
    for (const auto* const name : {"ActionInvoked", "NotificationClosed"}) {
        bus.connect({}, path, service, QLatin1String(name), receiver_.get(), SLOT(receive(QDBusMessage)));
    }
    ownerWatcher_ = std::make_unique<QDBusServiceWatcher>(service, bus, QDBusServiceWatcher::WatchForOwnerChange);
    QObject::connect(
        ownerWatcher_.get(), &QDBusServiceWatcher::serviceOwnerChanged, ownerWatcher_.get(),
        [this](const QString&, const QString&, const QString& owner) { ownerChanged(owner.toStdString()); });
}

void LinuxNotificationCenter::ask(const QDBusMessage& question, std::function<void(const QDBusMessage&)> answer) {
    auto bus = bus_.connection();
    if (!bus) {
        answer(QDBusMessage::createError(QDBusError::ServiceUnknown, "there is no session bus"));
        return;
    }
    listen(*bus);
    const auto limit = std::chrono::ceil<std::chrono::milliseconds>(answerLimit_).count();
    auto* const watcher = new QDBusPendingCallWatcher(bus->asyncCall(question, static_cast<int>(limit)));
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, watcher,
                     [watcher, answer = lifetime_.guard(std::move(answer))] {
                         watcher->deleteLater();
                         answer(watcher->reply());
                     });
}

} // namespace ambrel
