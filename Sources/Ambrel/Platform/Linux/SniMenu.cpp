#include "Platform/Linux/SniMenu.h"

#include "Core/MainQueue.h"

#include <numeric>
#include <utility>

namespace ambrel {

namespace {

const std::string menuInterface = "com.canonical.dbusmenu";
constexpr std::int32_t rootId = 0;

std::int32_t idAt(std::size_t index) {
    return static_cast<std::int32_t>(index) + 1;
}

/// The items of a list of numbers that is next in the message.
std::vector<std::int32_t> readIds(sd_bus_message* message) {
    std::vector<std::int32_t> ids;
    if (sd_bus_message_enter_container(message, SD_BUS_TYPE_ARRAY, "i") > 0) {
        std::int32_t id = 0;
        while (sd_bus_message_read_basic(message, SD_BUS_TYPE_INT32, &id) > 0) {
            ids.push_back(id);
        }
        sd_bus_message_exit_container(message);
    }
    return ids;
}

int appendRootProperties(sd_bus_message* reply) {
    return sd_bus_message_append(reply, "a{sv}", 1, "children-display", "s", "submenu");
}

int appendProperties(sd_bus_message* reply, const StatusMenuEntry& entry) {
    return entry.title.empty() ? sd_bus_message_append(reply, "a{sv}", 1, "type", "s", "separator")
                               : sd_bus_message_append(reply, "a{sv}", 1, "label", "s", entry.title.c_str());
}

int appendEntry(sd_bus_message* reply, std::int32_t id, const StatusMenuEntry& entry) {
    sd_bus_message_open_container(reply, SD_BUS_TYPE_VARIANT, "(ia{sv}av)");
    sd_bus_message_open_container(reply, SD_BUS_TYPE_STRUCT, "ia{sv}av");
    sd_bus_message_append(reply, "i", id);
    appendProperties(reply, entry);
    sd_bus_message_append(reply, "av", 0);
    sd_bus_message_close_container(reply);
    return sd_bus_message_close_container(reply);
}

/// Answers a call; the message goes with its being sent.
template <typename Fill> int answer(sd_bus_message* call, Fill fill) {
    sd_bus_message* reply = nullptr;
    int result = sd_bus_message_new_method_return(call, &reply);
    if (result >= 0) {
        result = fill(reply);
    }
    if (result >= 0) {
        result = sd_bus_send(nullptr, reply, nullptr);
    }
    sd_bus_message_unref(reply);
    return result;
}

} // namespace

/// What the bus calls, with the menu behind `self`.
struct SniMenu::Table {
    static const SniMenu& of(void* self) { return *static_cast<const SniMenu*>(self); }

    static int getLayout(sd_bus_message* call, void* self, sd_bus_error*) { return of(self).getLayout(call); }
    static int getGroupProperties(sd_bus_message* call, void* self, sd_bus_error*) {
        return of(self).getGroupProperties(call);
    }
    static int getProperty(sd_bus_message* call, void* self, sd_bus_error*) { return of(self).getProperty(call); }
    static int event(sd_bus_message* call, void* self, sd_bus_error*) {
        readEvent(call, of(self));
        return sd_bus_reply_method_return(call, "");
    }
    static int eventGroup(sd_bus_message* call, void* self, sd_bus_error*) {
        sd_bus_message_enter_container(call, SD_BUS_TYPE_ARRAY, "(isvu)");
        while (sd_bus_message_enter_container(call, SD_BUS_TYPE_STRUCT, "isvu") > 0) {
            readEvent(call, of(self));
            sd_bus_message_exit_container(call);
        }
        return sd_bus_reply_method_return(call, "ai", 0);
    }
    static int aboutToShow(sd_bus_message* call, void*, sd_bus_error*) {
        return sd_bus_reply_method_return(call, "b", 0);
    }
    static int aboutToShowGroup(sd_bus_message* call, void*, sd_bus_error*) {
        return sd_bus_reply_method_return(call, "aiai", 0, 0);
    }
    static int version(sd_bus*, const char*, const char*, const char*, sd_bus_message* reply, void*, sd_bus_error*) {
        return sd_bus_message_append(reply, "u", 3);
    }
    static int status(sd_bus*, const char*, const char*, const char*, sd_bus_message* reply, void*, sd_bus_error*) {
        return sd_bus_message_append(reply, "s", "normal");
    }
    static int direction(sd_bus*, const char*, const char*, const char*, sd_bus_message* reply, void*, sd_bus_error*) {
        return sd_bus_message_append(reply, "s", "ltr");
    }
    static int themePath(sd_bus*, const char*, const char*, const char*, sd_bus_message* reply, void*, sd_bus_error*) {
        return sd_bus_message_append(reply, "as", 0);
    }

    static void readEvent(sd_bus_message* call, const SniMenu& menu) {
        std::int32_t id = 0;
        const char* event = nullptr;
        sd_bus_message_read(call, "is", &id, &event);
        sd_bus_message_skip(call, "vu");
        if (event != nullptr && std::string(event) == "clicked") {
            menu.choose(id);
        }
    }

    static const sd_bus_vtable rows[];
};

const sd_bus_vtable SniMenu::Table::rows[] = {
    SD_BUS_VTABLE_START(0),
    SD_BUS_PROPERTY("Version", "u", version, 0, SD_BUS_VTABLE_PROPERTY_CONST),
    SD_BUS_PROPERTY("Status", "s", status, 0, SD_BUS_VTABLE_PROPERTY_CONST),
    SD_BUS_PROPERTY("TextDirection", "s", direction, 0, SD_BUS_VTABLE_PROPERTY_CONST),
    SD_BUS_PROPERTY("IconThemePath", "as", themePath, 0, SD_BUS_VTABLE_PROPERTY_CONST),
    SD_BUS_METHOD("GetLayout", "iias", "u(ia{sv}av)", getLayout, SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_METHOD("GetGroupProperties", "aias", "a(ia{sv})", getGroupProperties, SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_METHOD("GetProperty", "is", "v", getProperty, SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_METHOD("Event", "isvu", "", event, SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_METHOD("EventGroup", "a(isvu)", "ai", eventGroup, SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_METHOD("AboutToShow", "i", "b", aboutToShow, SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_METHOD("AboutToShowGroup", "ai", "aiai", aboutToShowGroup, SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_SIGNAL("LayoutUpdated", "ui", 0),
    SD_BUS_SIGNAL("ItemsPropertiesUpdated", "a(ia{sv})a(ias)", 0),
    SD_BUS_SIGNAL("ItemActivationRequested", "iu", 0),
    SD_BUS_VTABLE_END};

SniMenu::SniMenu(MainQueue& queue, AsyncBus* bus) : queue_(queue), bus_(bus) {
    if (bus_ != nullptr) {
        bus_->offer(path, menuInterface, Table::rows, this);
    }
}

void SniMenu::setEntries(std::vector<StatusMenuEntry> entries) {
    entries_ = std::move(entries);
    ++revision_;
    if (bus_ != nullptr) {
        bus_->emitSignal(path, menuInterface, "LayoutUpdated",
                         [this](sd_bus_message* signal) { sd_bus_message_append(signal, "ui", revision_, rootId); });
    }
}

int SniMenu::getLayout(sd_bus_message* call) const {
    std::int32_t parent = rootId;
    std::int32_t depth = 0;
    sd_bus_message_read(call, "ii", &parent, &depth);
    const auto* const entry = find(parent);
    if (parent != rootId && entry == nullptr) {
        return sd_bus_reply_method_errorf(call, SD_BUS_ERROR_INVALID_ARGS, "no entry %d", parent);
    }
    return answer(call, [&](sd_bus_message* reply) {
        sd_bus_message_append(reply, "u", revision_);
        sd_bus_message_open_container(reply, SD_BUS_TYPE_STRUCT, "ia{sv}av");
        sd_bus_message_append(reply, "i", parent);
        entry == nullptr ? appendRootProperties(reply) : appendProperties(reply, *entry);
        sd_bus_message_open_container(reply, SD_BUS_TYPE_ARRAY, "v");
        const auto children = entry == nullptr && depth != 0 ? entries_.size() : 0;
        for (std::size_t index = 0; index < children; ++index) {
            appendEntry(reply, idAt(index), entries_[index]);
        }
        sd_bus_message_close_container(reply);
        return sd_bus_message_close_container(reply);
    });
}

int SniMenu::getGroupProperties(sd_bus_message* call) const {
    auto ids = readIds(call);
    if (ids.empty()) {
        // None means all.
        ids.resize(entries_.size());
        std::iota(ids.begin(), ids.end(), idAt(0));
    }
    return answer(call, [&](sd_bus_message* reply) {
        sd_bus_message_open_container(reply, SD_BUS_TYPE_ARRAY, "(ia{sv})");
        for (const auto id : ids) {
            const auto* const entry = find(id);
            if (entry == nullptr && id != rootId) {
                continue;
            }
            sd_bus_message_open_container(reply, SD_BUS_TYPE_STRUCT, "ia{sv}");
            sd_bus_message_append(reply, "i", id);
            entry == nullptr ? appendRootProperties(reply) : appendProperties(reply, *entry);
            sd_bus_message_close_container(reply);
        }
        return sd_bus_message_close_container(reply);
    });
}

int SniMenu::getProperty(sd_bus_message* call) const {
    std::int32_t id = rootId;
    const char* name = nullptr;
    sd_bus_message_read(call, "is", &id, &name);
    const auto* const entry = find(id);
    if (entry == nullptr || name == nullptr || std::string(name) != (entry->title.empty() ? "type" : "label")) {
        return sd_bus_reply_method_errorf(call, SD_BUS_ERROR_INVALID_ARGS, "no such property");
    }
    return sd_bus_reply_method_return(call, "v", "s", entry->title.empty() ? "separator" : entry->title.c_str());
}

void SniMenu::choose(std::int32_t id) const {
    // What it does may take this menu away, which the bus still holds.
    if (const auto* const entry = find(id); entry != nullptr && entry->action) {
        queue_.async(entry->action);
    }
}

const StatusMenuEntry* SniMenu::find(std::int32_t id) const {
    const auto index = static_cast<std::size_t>(id) - 1;
    return id > rootId && index < entries_.size() ? &entries_[index] : nullptr;
}

} // namespace ambrel
