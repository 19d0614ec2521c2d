#include "Platform/Linux/PortalAppearance.h"

#include <cmath>
#include <cstdint>
#include <utility>

namespace ambrel {

namespace {

const std::string service = "org.freedesktop.portal.Desktop";
const std::string path = "/org/freedesktop/portal/desktop";
const std::string interface = "org.freedesktop.portal.Settings";
const std::string appearance = "org.freedesktop.appearance";
const std::string desktopInterface = "org.gnome.desktop.interface";

/// The value in the variant that is next in the message, which is passed over, whatever it holds.
template <char type, typename Value> std::optional<Value> readVariant(sd_bus_message* message) {
    constexpr char contents[] = {type, 0};
    Value value{};
    if (sd_bus_message_verify_type(message, SD_BUS_TYPE_VARIANT, contents) > 0) {
        return sd_bus_message_read(message, "v", contents, &value) > 0 ? std::optional(value) : std::nullopt;
    }
    sd_bus_message_skip(message, "v");
    return std::nullopt;
}

ColorScheme colorSchemeOf(std::uint32_t number) {
    return number == 1 ? ColorScheme::dark : number == 2 ? ColorScheme::light : ColorScheme::unknown;
}

} // namespace

PortalAppearance::PortalAppearance() : bus_(AsyncBus::open(AsyncBus::Kind::session)) {
    if (!bus_) {
        return;
    }
    portal_.emplace(*bus_, service);
    appeared_ = portal_->appeared.subscribe([this] { ask(false); });
    portal_->subscribe(interface, "SettingChanged", [this](sd_bus_message* message) {
        const auto space = readText(message);
        const auto key = readText(message);
        auto settings = settings_;
        if (space && key) {
            readSetting(message, *space, *key, settings);
            become(settings);
        }
    });
    ask(true);
}

AppearanceFacts PortalAppearance::current() const {
    auto facts = settings_.facts;
    facts.reducedMotion = facts.reducedMotion || !settings_.animates;
    return facts;
}

/// Everything in one question, which portals of every age understand alike.
void PortalAppearance::ask(bool mayStart) {
    bus_->call({.service = service,
                .path = path,
                .interface = interface,
                .method = "ReadAll",
                .list = {appearance, desktopInterface},
                .mayStart = mayStart},
               [this](sd_bus_message* message) { readAll(message); });
}

void PortalAppearance::readAll(sd_bus_message* message) {
    if (sd_bus_message_enter_container(message, SD_BUS_TYPE_ARRAY, "{sa{sv}}") <= 0) {
        return;
    }
    Settings settings;
    while (sd_bus_message_enter_container(message, SD_BUS_TYPE_DICT_ENTRY, "sa{sv}") > 0) {
        readNamespace(message, settings);
        sd_bus_message_exit_container(message);
    }
    become(settings);
}

void PortalAppearance::readNamespace(sd_bus_message* message, Settings& settings) {
    const auto space = readText(message);
    if (!space || sd_bus_message_enter_container(message, SD_BUS_TYPE_ARRAY, "{sv}") <= 0) {
        return;
    }
    while (sd_bus_message_enter_container(message, SD_BUS_TYPE_DICT_ENTRY, "sv") > 0) {
        if (const auto key = readText(message)) {
            readSetting(message, *space, *key, settings);
        }
        sd_bus_message_exit_container(message);
    }
    sd_bus_message_exit_container(message);
}

void PortalAppearance::readSetting(sd_bus_message* message, const std::string& space, const std::string& key,
                                   Settings& settings) {
    auto& facts = settings.facts;
    if (space == appearance && key == "color-scheme") {
        facts.colorScheme = colorSchemeOf(readVariant<'u', std::uint32_t>(message).value_or(0));
    } else if (space == appearance && key == "contrast") {
        facts.highContrast = readVariant<'u', std::uint32_t>(message) == 1U;
    } else if (space == appearance && key == "reduced-motion") {
        facts.reducedMotion = readVariant<'u', std::uint32_t>(message) == 1U;
    } else if (space == desktopInterface && key == "enable-animations") {
        settings.animates = readVariant<'b', int>(message).value_or(1) != 0;
    } else if (space == desktopInterface && key == "text-scaling-factor") {
        const double scale = readVariant<'d', double>(message).value_or(1);
        facts.textScale = std::isfinite(scale) && scale > 0 ? scale : 1;
    } else {
        sd_bus_message_skip(message, "v");
    }
}

void PortalAppearance::become(const Settings& settings) {
    const auto before = current();
    settings_ = settings;
    if (current() != before) {
        didChange.emit();
    }
}

} // namespace ambrel
