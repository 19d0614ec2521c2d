#pragma once

#include <QDBusConnection>
#include <QDBusVirtualObject>

namespace ambrel {

/// The session's services, played on its bus by the test itself: answers wait for the main loop.
class PlayedServices final : public QDBusVirtualObject {
public:
    PlayedServices();
    ~PlayedServices() override;

    /// The screen saver comes with the first of these calls.
    void setScreenSaver(bool on);
    void startNotifications();
    void useNotification(const QString& action);

    [[nodiscard]] QString introspect(const QString&) const override { return {}; }
    bool handleMessage(const QDBusMessage& message, const QDBusConnection& bus) override;

private:
    QDBusConnection bus_;
    bool screenSaverIsOn_ = false;
    unsigned lastNotification_ = 0;
};

} // namespace ambrel
