#include "Platform/Linux/QuitRequest.h"

#include "Platform/Linux/Process.h"
#include "Platform/Linux/SessionBus.h"

#include <csignal>
#include <utility>

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QVariantMap>

namespace ambrel {

namespace {

constexpr int answerLimitMilliseconds = 1500;

/// A question must never start the application that it is about to end.
QDBusMessage methodCall(const std::string& service, const std::string& path, const char* interface,
                        const char* method) {
    auto message = QDBusMessage::createMethodCall(QString::fromStdString(service), QString::fromStdString(path),
                                                  QLatin1String(interface), QLatin1String(method));
    message.setAutoStartService(false);
    return message;
}

QDBusMessage actionsCall(const QuitActionAddress& address, const char* method) {
    return methodCall(address.busName, address.objectPath, "org.gtk.Actions", method);
}

QVariant firstArgument(const QDBusMessage& reply) {
    const bool answered = reply.type() == QDBusMessage::ReplyMessage && !reply.arguments().isEmpty();
    return answered ? reply.arguments().constFirst() : QVariant();
}

} // namespace

QuitRequest::QuitRequest(SessionBus& bus) : bus_(bus) {}

void QuitRequest::quit(const std::shared_ptr<Process>& process, std::optional<QuitActionAddress> address,
                       const Callbacks& callbacks) {
    std::erase_if(progress_, [](const auto& entry) { return entry.first.expired(); });
    if (progress_[process].asking) {
        callbacks.done(QuitOutcome::nothingSent);
    } else if (address && bus_.connection()) {
        progress_[process].asking = true;
        checkOwner(process, *address, callbacks);
    } else {
        sendSignal(process, callbacks);
    }
}

void QuitRequest::checkOwner(const ProcessRef& process, const QuitActionAddress& address, const Callbacks& callbacks) {
    auto question = methodCall("org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus",
                               "GetConnectionUnixProcessID");
    question << QString::fromStdString(address.busName);
    ask(question, [this, process, address, callbacks](const QDBusMessage& reply) {
        const bool owned = firstArgument(reply).toLongLong() == process->pid();
        owned ? checkAction(process, address, callbacks) : sendSignal(process, callbacks);
    });
}

void QuitRequest::checkAction(const ProcessRef& process, const QuitActionAddress& address, const Callbacks& callbacks) {
    ask(actionsCall(address, "List"), [this, process, address, callbacks](const QDBusMessage& reply) {
        const bool listed = firstArgument(reply).toStringList().contains("quit");
        listed ? activate(process, address, callbacks) : sendSignal(process, callbacks);
    });
}

void QuitRequest::activate(const ProcessRef& process, const QuitActionAddress& address, const Callbacks& callbacks) {
    auto call = actionsCall(address, "Activate");
    call << QString("quit") << QVariantList() << QVariantMap();
    auto& progress = progress_[process];
    progress.asking = false;
    const auto bus = bus_.connection();
    if (process->hasExited()) {
        callbacks.done(QuitOutcome::gone);
    } else if (!bus) {
        callbacks.done(QuitOutcome::nothingSent);
    } else if (!callbacks.lastLook()) {
        callbacks.done(QuitOutcome::dropped);
    } else {
        progress.asked = true;
        bus->asyncCall(call, answerLimitMilliseconds);
        callbacks.done(QuitOutcome::sent);
    }
}

void QuitRequest::sendSignal(const ProcessRef& process, const Callbacks& callbacks) {
    progress_[process].asking = false;
    callbacks.done(signalOnce(process, callbacks));
}

/// Many programs end politely at the first SIGTERM and die of the second.
QuitOutcome QuitRequest::signalOnce(const ProcessRef& process, const Callbacks& callbacks) {
    if (process->hasExited()) {
        return QuitOutcome::gone;
    }
    if (progress_[process].asked) {
        return QuitOutcome::nothingSent;
    }
    if (!callbacks.lastLook()) {
        return QuitOutcome::dropped;
    }
    progress_[process].asked = process->signal(SIGTERM);
    return progress_[process].asked ? QuitOutcome::sent : QuitOutcome::nothingSent;
}

void QuitRequest::ask(const QDBusMessage& question, Answer answer) {
    const auto bus = bus_.connection();
    auto* const watcher = new QDBusPendingCallWatcher(bus->asyncCall(question, answerLimitMilliseconds));
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, watcher,
                     [watcher, answer = lifetime_.guard(std::move(answer))] {
                         watcher->deleteLater();
                         answer(watcher->reply());
                     });
}

} // namespace ambrel
