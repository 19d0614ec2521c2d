// GIO's headers and Qt's keywords don't go together: this file comes without Qt.
#include "Platform/Linux/DesktopEntries.h"

#include <utility>
#include <vector>

#include <gio/gdesktopappinfo.h>
#include <gio/gio.h>

namespace ambrel {

namespace {

template <typename Object> struct Unref {
    void operator()(Object* object) const { g_object_unref(object); }
};
template <typename Object> using ObjectRef = std::unique_ptr<Object, Unref<Object>>;

std::string textOf(const char* text) {
    return text != nullptr ? text : "";
}

std::string entryIdOf(GAppInfo* info) {
    return desktopEntryId(textOf(g_app_info_get_id(info)));
}

DesktopEntryRecord recordOf(GAppInfo* info) {
    const auto program = std::filesystem::path(textOf(g_app_info_get_executable(info)));
    return {.id = entryIdOf(info),
            .windowClass = textOf(g_desktop_app_info_get_startup_wm_class(G_DESKTOP_APP_INFO(info))),
            .program = program.filename().string(),
            .shownInMenus = g_app_info_should_show(info) != FALSE};
}

std::string iconOf(GAppInfo* info) {
    GIcon* const icon = g_app_info_get_icon(info);
    if (icon == nullptr) {
        return {};
    }
    char* const text = g_icon_to_string(icon);
    auto name = textOf(text);
    g_free(text);
    return name;
}

DesktopEntry entryOf(GAppInfo* info) {
    return {.id = entryIdOf(info),
            .path = textOf(g_desktop_app_info_get_filename(G_DESKTOP_APP_INFO(info))),
            .localizedName = textOf(g_app_info_get_name(info)),
            .icon = iconOf(info),
            .shownInMenus = g_app_info_should_show(info) != FALSE};
}

template <typename Visit> void forEachEntry(Visit visit) {
    GList* const all = g_app_info_get_all();
    for (GList* node = all; node != nullptr; node = node->next) {
        if (G_IS_DESKTOP_APP_INFO(node->data)) {
            visit(G_APP_INFO(node->data));
        }
    }
    g_list_free_full(all, g_object_unref);
}

DesktopEntryIndex readIndex() {
    std::vector<DesktopEntryRecord> records;
    forEachEntry([&](GAppInfo* info) { records.push_back(recordOf(info)); });
    return DesktopEntryIndex(std::move(records));
}

std::optional<std::string> readTextHandler() {
    const ObjectRef<GAppInfo> handler(g_app_info_get_default_for_type("text/plain", FALSE));
    // One that runs in a terminal has no window that could close.
    const bool hasWindows = handler && g_desktop_app_info_get_boolean(G_DESKTOP_APP_INFO(handler.get()),
                                                                      G_KEY_FILE_DESKTOP_KEY_TERMINAL) == FALSE;
    return hasWindows ? std::optional(entryIdOf(handler.get())) : std::nullopt;
}

} // namespace

struct DesktopEntries::Monitor {
    explicit Monitor(bool& staleFlag) : stale(staleFlag) {
        g_signal_connect(monitor.get(), "changed", G_CALLBACK(changed), this);
    }
    ~Monitor() { g_signal_handlers_disconnect_by_data(monitor.get(), this); }
    Monitor(const Monitor&) = delete;
    Monitor& operator=(const Monitor&) = delete;

    static void changed(GAppInfoMonitor*, gpointer self) { static_cast<Monitor*>(self)->stale = true; }

    ObjectRef<GAppInfoMonitor> monitor{g_app_info_monitor_get()};
    bool& stale;
};

DesktopEntries::DesktopEntries() = default;
DesktopEntries::~DesktopEntries() = default;

const DesktopEntryIndex& DesktopEntries::index() {
    refresh();
    return index_;
}

std::optional<DesktopEntry> DesktopEntries::entry(const std::string& id) const {
    const ObjectRef<GDesktopAppInfo> info(g_desktop_app_info_new((id + ".desktop").c_str()));
    if (!info) {
        return std::nullopt;
    }
    auto entry = entryOf(G_APP_INFO(info.get()));
    entry.id = id;
    return entry;
}

std::vector<DesktopEntry> DesktopEntries::shownInMenus() const {
    std::vector<DesktopEntry> entries;
    forEachEntry([&](GAppInfo* info) {
        if (auto entry = entryOf(info); entry.shownInMenus) {
            entries.push_back(std::move(entry));
        }
    });
    return entries;
}

std::optional<std::string> DesktopEntries::textHandler() {
    refresh();
    return textHandler_;
}

void DesktopEntries::refresh() {
    if (!monitor_) {
        monitor_ = std::make_unique<Monitor>(stale_);
    }
    // Cleared first, so that a change during the reading counts.
    if (std::exchange(stale_, false)) {
        index_ = readIndex();
        textHandler_ = readTextHandler();
    }
}

} // namespace ambrel
