#include "Platform/Linux/SniItem.h"

#include "Core/MainQueue.h"

#include <cstring>
#include <utility>

#include <endian.h>

namespace ambrel {

namespace {

const std::string watcherName = "org.kde.StatusNotifierWatcher";
const std::string watcherPath = "/StatusNotifierWatcher";
const std::string itemPath = "/StatusNotifierItem";
const std::string itemInterface = "org.kde.StatusNotifierItem";
const std::string busName = "org.freedesktop.DBus";
constexpr std::size_t blankSize = 22;

int appendPixmap(sd_bus_message* reply, const IconMask& mask, IconColour colour) {
    auto pixels = paintIcon(mask, colour, AlphaForm::straight);
    for (auto& pixel : pixels) {
        pixel = htobe32(pixel);
    }
    sd_bus_message_open_container(reply, SD_BUS_TYPE_STRUCT, "iiay");
    sd_bus_message_append(reply, "ii", mask.size, mask.size);
    sd_bus_message_append_array(reply, SD_BUS_TYPE_BYTE, pixels.data(), pixels.size() * sizeof pixels[0]);
    return sd_bus_message_close_container(reply);
}

} // namespace

/// What the bus asks, with the item behind `self`.
struct SniItem::Table {
    static SniItem& of(void* self) { return *static_cast<SniItem*>(self); }

    static int activate(sd_bus_message* call, void* self, sd_bus_error*) {
        std::int32_t x = 0;
        std::int32_t y = 0;
        sd_bus_message_read(call, "ii", &x, &y);
        of(self).activate(x, y);
        return sd_bus_reply_method_return(call, "");
    }
    static int scroll(sd_bus_message* call, void*, sd_bus_error*) { return sd_bus_reply_method_return(call, ""); }

    static int text(sd_bus*, const char*, const char*, const char* name, sd_bus_message* reply, void* self,
                    sd_bus_error*) {
        const bool isId = std::strcmp(name, "Id") == 0;
        return sd_bus_message_append(reply, "s", (isId ? of(self).identifier_ : of(self).title_).c_str());
    }
    static int category(sd_bus*, const char*, const char*, const char*, sd_bus_message* reply, void*, sd_bus_error*) {
        return sd_bus_message_append(reply, "s", "ApplicationStatus");
    }
    static int status(sd_bus*, const char*, const char*, const char*, sd_bus_message* reply, void*, sd_bus_error*) {
        return sd_bus_message_append(reply, "s", "Active");
    }
    static int nothing(sd_bus*, const char*, const char*, const char*, sd_bus_message* reply, void*, sd_bus_error*) {
        return sd_bus_message_append(reply, "s", "");
    }
    static int itemIsMenu(sd_bus*, const char*, const char*, const char*, sd_bus_message* reply, void*, sd_bus_error*) {
        return sd_bus_message_append(reply, "b", 0);
    }
    static int menu(sd_bus*, const char*, const char*, const char*, sd_bus_message* reply, void*, sd_bus_error*) {
        return sd_bus_message_append(reply, "o", SniMenu::path);
    }
    static int pixmaps(sd_bus*, const char*, const char*, const char*, sd_bus_message* reply, void* self,
                       sd_bus_error*) {
        return of(self).appendPixmaps(reply);
    }

    static const sd_bus_vtable rows[];
};

const sd_bus_vtable SniItem::Table::rows[] = {
    SD_BUS_VTABLE_START(0),
    SD_BUS_PROPERTY("Category", "s", category, 0, SD_BUS_VTABLE_PROPERTY_CONST),
    SD_BUS_PROPERTY("Id", "s", text, 0, SD_BUS_VTABLE_PROPERTY_CONST),
    SD_BUS_PROPERTY("Title", "s", text, 0, SD_BUS_VTABLE_PROPERTY_CONST),
    SD_BUS_PROPERTY("Status", "s", status, 0, 0),
    SD_BUS_PROPERTY("IconName", "s", nothing, 0, 0),
    SD_BUS_PROPERTY("IconPixmap", "a(iiay)", pixmaps, 0, 0),
    SD_BUS_PROPERTY("OverlayIconName", "s", nothing, 0, 0),
    SD_BUS_PROPERTY("AttentionIconName", "s", nothing, 0, 0),
    SD_BUS_PROPERTY("ItemIsMenu", "b", itemIsMenu, 0, SD_BUS_VTABLE_PROPERTY_CONST),
    SD_BUS_PROPERTY("Menu", "o", menu, 0, SD_BUS_VTABLE_PROPERTY_CONST),
    SD_BUS_METHOD("Activate", "ii", "", activate, SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_METHOD("SecondaryActivate", "ii", "", activate, SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_METHOD("ContextMenu", "ii", "", activate, SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_METHOD("Scroll", "is", "", scroll, SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_SIGNAL("NewIcon", "", 0),
    SD_BUS_SIGNAL("NewStatus", "s", 0),
    SD_BUS_VTABLE_END};

SniItem::SniItem(MainQueue& queue, std::function<bool()> isPanelDark, std::string identifier, std::string title)
    : queue_(queue), isPanelDark_(std::move(isPanelDark)), identifier_(std::move(identifier)), title_(std::move(title)),
      bus_(AsyncBus::open(AsyncBus::Kind::session)), menu_(queue, bus_.get()) {
    if (bus_) {
        bus_->offer(itemPath, itemInterface, Table::rows, this);
    }
}

SniItem::~SniItem() {
    // No answer that is still on its way may find this object half destroyed.
    watcher_.reset();
    bus_.reset();
}

void SniItem::start() {
    if (!bus_) {
        setWatched(false);
        return;
    }
    watcher_.emplace(*bus_, watcherName);
    subscriptions_.push_back(watcher_->appeared.subscribe([this] { registerItem(); }));
    subscriptions_.push_back(watcher_->vanished.subscribe([this] { setWatched(false); }));
    findWatcher();
}

void SniItem::findWatcher() {
    bus_->call({busName, "/org/freedesktop/DBus", busName, "NameHasOwner", watcherName},
               [this](sd_bus_message* answer) {
                   if (isWatched_) {
                       return; // it has come, or gone, in the meantime
                   }
                   readBoolean(answer).value_or(false) ? registerItem() : setWatched(false);
               });
}

void SniItem::registerItem() {
    hasNews_ = false;
    setWatched(true);
    // By its path: the item is as long there as this connection is, and needs no name.
    watcher_->call(watcherPath, watcherName, "RegisterStatusNotifierItem", itemPath, [this](sd_bus_message* answer) {
        if (isError(answer)) {
            setWatched(false);
        }
    });
}

void SniItem::setWatched(bool watched) {
    if (std::exchange(isWatched_, watched) != watched) {
        watcherDidChange.emit();
    }
}

void SniItem::setLook(IconLook look) {
    look_ = std::move(look);
    // Trays fetch an icon when they are told of it; one that is behind gets the latest at once.
    if (bus_ && isWatched_.value_or(false) && !std::exchange(hasNews_, true)) {
        bus_->emitSignal(itemPath, itemInterface, "NewIcon");
    }
}

void SniItem::activate(int x, int y) {
    // What a click does may take this item away, which the bus still holds.
    queue_.async(lifetime_.guard([this, x, y] { activated.emit(x, y); }));
}

int SniItem::appendPixmaps(sd_bus_message* reply) {
    hasNews_ = false;
    const auto colour = tinted(foregroundOn(isPanelDark_()), look_.tint);
    sd_bus_message_open_container(reply, SD_BUS_TYPE_ARRAY, "(iiay)");
    for (const auto& mask : look_.picture) {
        appendPixmap(reply, mask, colour);
    }
    if (look_.picture.empty()) {
        // A tray that gets no picture shows one of its own.
        appendPixmap(reply, {static_cast<int>(blankSize), std::vector<std::uint8_t>(blankSize * blankSize)}, colour);
    }
    return sd_bus_message_close_container(reply);
}

} // namespace ambrel
