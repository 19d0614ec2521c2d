#pragma once

#include "Platform/Appearance.h"
#include "Platform/Linux/AsyncBus.h"
#include "Platform/Linux/BusService.h"

#include <memory>
#include <optional>
#include <string>

namespace ambrel {

/// The desktop's looks in the words of the settings portal. Asks once, when it is made, which may start the portal;
/// from then on it listens. A portal that goes away leaves its last word.
class PortalAppearance final : public Appearance {
public:
    PortalAppearance();
    PortalAppearance(const PortalAppearance&) = delete;
    PortalAppearance& operator=(const PortalAppearance&) = delete;

    [[nodiscard]] AppearanceFacts current() const override;

private:
    /// What one setting says; another one may say more of the same.
    struct Settings {
        AppearanceFacts facts;
        bool animates = true;

        bool operator==(const Settings&) const = default;
    };

    void ask(bool mayStart);
    void readAll(sd_bus_message* message);
    static void readNamespace(sd_bus_message* message, Settings& settings);
    /// Takes the variant that is next in the message.
    static void readSetting(sd_bus_message* message, const std::string& space, const std::string& key,
                            Settings& settings);
    void become(const Settings& settings);

    std::unique_ptr<AsyncBus> bus_;
    std::optional<BusService> portal_;
    Subscription appeared_;
    Settings settings_;
};

} // namespace ambrel
