#include "Platform/Linux/SniTrayItems.h"

#include "Platform/Linux/ProcFiles.h"

#include <algorithm>
#include <functional>

namespace ambrel {

namespace {

const std::string watcherName = "org.kde.StatusNotifierWatcher";
const std::string watcherPath = "/StatusNotifierWatcher";
const std::string busName = "org.freedesktop.DBus";

std::string sandboxOf(ProcessId pid) {
    const auto info = readProcFile(pid, "root/.flatpak-info");
    return info ? parseFlatpakApplication(*info).value_or("") : "";
}

/// An item is named by its service, which may be followed by its path.
std::string serviceOf(const std::string& item) {
    return item.substr(0, item.find('/'));
}

/// The texts of the property `name` in the dictionary of variants that is next in the message.
std::vector<std::string> readTexts(sd_bus_message* message, const std::string& name) {
    std::vector<std::string> texts;
    if (sd_bus_message_enter_container(message, SD_BUS_TYPE_ARRAY, "{sv}") <= 0) {
        return texts;
    }
    while (sd_bus_message_enter_container(message, SD_BUS_TYPE_DICT_ENTRY, "sv") > 0) {
        if (readText(message) == name && sd_bus_message_enter_container(message, SD_BUS_TYPE_VARIANT, "as") > 0) {
            sd_bus_message_enter_container(message, SD_BUS_TYPE_ARRAY, "s");
            while (const auto text = readText(message)) {
                texts.push_back(*text);
            }
            return texts;
        }
        sd_bus_message_skip(message, "v");
        sd_bus_message_exit_container(message);
    }
    return texts;
}

std::optional<ProcessId> readPid(sd_bus_message* message) {
    std::uint32_t pid = 0;
    const bool read = sd_bus_message_read_basic(message, SD_BUS_TYPE_UINT32, &pid) > 0;
    return read ? std::optional(static_cast<ProcessId>(pid)) : std::nullopt;
}

} // namespace

SniTrayItems::SniTrayItems() : bus_(AsyncBus::open(AsyncBus::Kind::session)) {
    if (!bus_) {
        return;
    }
    watcher_.emplace(*bus_, watcherName);
    subscriptions_.push_back(watcher_->appeared.subscribe([this] { readAll(); }));
    subscriptions_.push_back(watcher_->vanished.subscribe([this] { clear(); }));
    const auto hear = [this](const char* signal, void (SniTrayItems::*take)(const std::string&)) {
        watcher_->subscribe(watcherName, signal, [this, take](sd_bus_message* message) {
            if (const auto item = readText(message)) {
                (this->*take)(*item);
            }
        });
    };
    hear("StatusNotifierItemRegistered", &SniTrayItems::add);
    hear("StatusNotifierItemUnregistered", &SniTrayItems::remove);
    readAll();
}

bool SniTrayItems::owns(ProcessId pid) const {
    // In a sandbox the item is offered by a proxy.
    std::optional<std::string> sandbox;
    return std::any_of(items_.begin(), items_.end(), [&](const auto& item) {
        const auto& owner = item.second;
        if (!owner || owner->pid == pid || owner->sandbox.empty()) {
            return owner && owner->pid == pid;
        }
        sandbox = sandbox ? sandbox : sandboxOf(pid);
        return *sandbox == owner->sandbox;
    });
}

void SniTrayItems::readAll() {
    watcher_->call(watcherPath, "org.freedesktop.DBus.Properties", "GetAll", watcherName,
                   [this](sd_bus_message* answer) {
                       for (const auto& item : readTexts(answer, "RegisteredStatusNotifierItems")) {
                           add(item);
                       }
                   });
}

void SniTrayItems::add(const std::string& item) {
    if (!items_.emplace(item, std::nullopt).second) {
        return;
    }
    bus_->call({busName, "/org/freedesktop/DBus", busName, "GetConnectionUnixProcessID", serviceOf(item)},
               [this, item](sd_bus_message* answer) {
                   if (const auto pid = readPid(answer)) {
                       setOwner(item, *pid);
                   }
               });
}

void SniTrayItems::setOwner(const std::string& item, ProcessId pid) {
    const auto known = items_.find(item);
    if (known != items_.end()) {
        known->second = Owner{pid, sandboxOf(pid)};
        didChange.emit();
    }
}

void SniTrayItems::remove(const std::string& item) {
    if (items_.erase(item) > 0) {
        didChange.emit();
    }
}

void SniTrayItems::clear() {
    items_.clear();
    didChange.emit();
}

} // namespace ambrel
