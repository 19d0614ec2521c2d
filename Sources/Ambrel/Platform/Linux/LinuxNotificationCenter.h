#pragma once

#include "Core/Clock.h"
#include "Core/Lifetime.h"
#include "Platform/NotificationCenter.h"

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <utility>

#include <QStringList>

class QDBusConnection;
class QDBusMessage;
class QDBusServiceWatcher;

namespace ambrel {

class BusSignalReceiver;
class MainQueue;
class SessionBus;

/// The notification daemon of the session bus. Nothing waits for it: a daemon that hangs costs its caller an answer,
/// and one that the bus can start is started by the first question.
class LinuxNotificationCenter final : public NotificationCenter {
public:
    /// Both must outlive this object. A question that the daemon has not answered after `answerLimit` has failed.
    LinuxNotificationCenter(SessionBus& bus, MainQueue& queue, Seconds answerLimit = Seconds(10));
    LinuxNotificationCenter(const LinuxNotificationCenter&) = delete;
    LinuxNotificationCenter& operator=(const LinuxNotificationCenter&) = delete;
    ~LinuxNotificationCenter() override;

    void setDelegate(std::function<void(const NotificationResponse&)> delegate) override;
    void setCategories(std::vector<NotificationCategory> categories) override;
    /// Granted where a daemon runs or can be started.
    void requestAuthorization(std::function<void(bool, NotificationFailure)> completion) override;
    void add(NotificationRequest request, std::function<void(NotificationFailure)> completion) override;

private:
    /// A daemon's unique name and the number it gave. Another daemon may give the same number.
    using Key = std::pair<std::string, std::uint32_t>;
    using Completion = std::function<void(NotificationFailure)>;

    void show(const NotificationRequest& request, const Completion& completion);
    void notify(const NotificationRequest& request, const QStringList& capabilities, const Completion& completion);
    [[nodiscard]] QStringList actionsFor(const std::string& categoryIdentifier) const;
    void received(const QDBusMessage& signal);
    void ownerChanged(const std::string& owner);
    void listen(QDBusConnection& bus);
    void ask(const QDBusMessage& question, std::function<void(const QDBusMessage&)> answer);

    SessionBus& bus_;
    MainQueue& queue_;
    Seconds answerLimit_;
    std::function<void(const NotificationResponse&)> delegate_;
    std::vector<NotificationCategory> categories_;
    std::map<Key, NotificationRequest> shown_;
    std::unique_ptr<BusSignalReceiver> receiver_;
    std::unique_ptr<QDBusServiceWatcher> ownerWatcher_;
    Lifetime lifetime_;
};

} // namespace ambrel
