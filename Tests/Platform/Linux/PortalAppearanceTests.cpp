#include "Platform/Linux/EventLoop.h"
#include "Platform/Linux/PortalAppearance.h"
#include "Platform/Linux/PrivateBus.h"
#include "Platform/Linux/SessionBus.h"

#include <vector>

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusVariant>
#include <QDBusVirtualObject>
#include <gtest/gtest.h>

using SettingsMap = QMap<QString, QVariantMap>;
Q_DECLARE_METATYPE(SettingsMap)

namespace ambrel {

namespace {

const QString portalName = QStringLiteral("org.freedesktop.portal.Desktop");
const QString portalPath = QStringLiteral("/org/freedesktop/portal/desktop");
const QString settingsInterface = QStringLiteral("org.freedesktop.portal.Settings");
const QString appearance = QStringLiteral("org.freedesktop.appearance");
const QString desktop = QStringLiteral("org.gnome.desktop.interface");

/// A settings portal in this process, or only its name, where it refuses to answer.
class Portal : public QDBusVirtualObject {
public:
    explicit Portal(QDBusConnection bus) : bus_(std::move(bus)) {
        qDBusRegisterMetaType<SettingsMap>();
        bus_.registerVirtualObject(portalPath, this);
        bus_.registerService(portalName);
    }
    Portal(const Portal&) = delete;
    Portal& operator=(const Portal&) = delete;
    ~Portal() override {
        bus_.unregisterService(portalName);
        bus_.unregisterObject(portalPath);
    }

    [[nodiscard]] QString introspect(const QString&) const override { return {}; }
    bool handleMessage(const QDBusMessage& message, const QDBusConnection& bus) override {
        ++questions;
        const bool understood = message.member() == "ReadAll" && message.signature() == "as";
        if (!understood || refuses) {
            return bus.send(message.createErrorReply(QDBusError::NotSupported, "no"));
        }
        SettingsMap asked;
        for (const auto& space : message.arguments()[0].toStringList()) {
            asked[space] = settings[space];
        }
        return bus.send(message.createReply(QVariant::fromValue(asked)));
    }

    void change(const QString& space, const QString& key, const QVariant& value) {
        settings[space][key] = value;
        send(bus_, space, key, value);
    }
    static void send(const QDBusConnection& bus, const QString& space, const QString& key, const QVariant& value) {
        auto signal = QDBusMessage::createSignal(portalPath, settingsInterface, "SettingChanged");
        signal << space << key << QVariant::fromValue(QDBusVariant(value));
        [[maybe_unused]] const bool sent = bus.send(signal);
    }

    SettingsMap settings;
    bool refuses = false;
    int questions = 0;

private:
    QDBusConnection bus_;
};

class PortalAppearanceTests : public testing::Test {
protected:
    PortalAppearanceTests() {
        EXPECT_TRUE(daemon.connection(Seconds(10)));
        EXPECT_TRUE(stranger.connection(Seconds(10)));
    }

    [[nodiscard]] static bool becomes(const PortalAppearance& desktopLooks, const AppearanceFacts& facts) {
        return runUntil([&] { return desktopLooks.current() == facts; });
    }

    PrivateBus bus;
    SessionBus daemon;
    SessionBus stranger;
};

const AppearanceFacts neutral;

TEST_F(PortalAppearanceTests, ReadsWhatTheDesktopSays) {
    struct Case {
        SettingsMap settings;
        AppearanceFacts facts;
    };
    const std::vector<Case> cases{
        {{{appearance, {{"color-scheme", 1U}}}}, {.colorScheme = ColorScheme::dark}},
        {{{appearance, {{"color-scheme", 2U}, {"contrast", 1U}}}},
         {.colorScheme = ColorScheme::light, .highContrast = true}},
        {{{appearance, {{"color-scheme", 7U}, {"contrast", 2U}, {"reduced-motion", 1U}}}}, {.reducedMotion = true}},
        {{{desktop, {{"text-scaling-factor", 1.25}, {"enable-animations", false}, {"font-name", "Sans 11"}}}},
         {.reducedMotion = true, .textScale = 1.25}},
        {{{appearance, {{"accent-color", QStringList{"odd"}}, {"contrast", "1"}, {"color-scheme", 1U}}},
          {desktop, {{"text-scaling-factor", -3.0}, {"enable-animations", 0U}}}},
         {.colorScheme = ColorScheme::dark}},
    };
    for (const auto& [settings, facts] : cases) {
        Portal portal(*daemon.connection());
        portal.settings = settings;
        const PortalAppearance looks;
        EXPECT_EQ(looks.current(), neutral) << "nobody waits for the portal";
        EXPECT_TRUE(becomes(looks, facts)) << "case " << &settings - &cases[0].settings;
        EXPECT_EQ(portal.questions, 1);
    }
}

TEST_F(PortalAppearanceTests, FollowsThePortalAndNobodyElse) {
    Portal portal(*daemon.connection());
    PortalAppearance looks;
    std::vector<AppearanceFacts> heard;
    const auto subscription = looks.didChange.subscribe([&] { heard.push_back(looks.current()); });
    ASSERT_TRUE(runUntil([&] { return portal.questions == 1; }));
    Portal::send(*stranger.connection(), appearance, "color-scheme", 1U);
    portal.change("org.example", "color-scheme", 1U);
    portal.change(appearance, "contrast", 1U);
    portal.change(appearance, "contrast", 1U);
    portal.change(desktop, "enable-animations", false);
    portal.change(appearance, "reduced-motion", 1U);
    ASSERT_TRUE(becomes(looks, {.highContrast = true, .reducedMotion = true}));
    EXPECT_EQ(heard, (std::vector<AppearanceFacts>{{.highContrast = true}, looks.current()}));
}

TEST_F(PortalAppearanceTests, APortalMayComeLateGoAndComeBack) {
    const PortalAppearance looks;
    auto portal = std::make_unique<Portal>(*daemon.connection());
    portal->settings[appearance]["color-scheme"] = 1U;
    EXPECT_TRUE(becomes(looks, {.colorScheme = ColorScheme::dark}));
    portal.reset();
    portal = std::make_unique<Portal>(*daemon.connection());
    portal->refuses = true;
    EXPECT_TRUE(runUntil([&] { return portal->questions == 1; }));
    EXPECT_EQ(looks.current().colorScheme, ColorScheme::dark) << "its last word holds";
    portal.reset();
    portal = std::make_unique<Portal>(*daemon.connection());
    EXPECT_TRUE(becomes(looks, neutral));
}

} // namespace

} // namespace ambrel
