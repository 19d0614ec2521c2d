#include "Platform/Linux/LaunchEntry.h"

#include "Core/Logger.h"

#include <functional>
#include <memory>
#include <string>
#include <utility>

#include <gio/gdesktopappinfo.h>
#include <gio/gio.h>

namespace ambrel {

namespace {

constexpr Logger logger("launch");

void logFailure(std::string_view entry, std::string_view why) {
    logger.error("could not open {}: {}", entry, why);
}

using Work = std::function<void()>;

/// Takes over a reference. GIO would make itself another connection as soon as nobody holds this one, and would go on
/// with this one, dead as it is, as long as anybody does.
void keep(GDBusConnection* bus) {
    static GDBusConnection* kept = nullptr;
    if (kept == bus) {
        g_object_unref(bus);
        return;
    }
    kept = bus;
    g_dbus_connection_set_exit_on_close(bus, FALSE);
    const auto release = +[](GDBusConnection*, gboolean, GError*, gpointer) {
        g_clear_object(&kept);
    };
    g_signal_connect(bus, "closed", G_CALLBACK(release), nullptr);
}

/// To launch anything, GIO connects to the session bus, waits for it, and ends this process when that bus ends.
/// Connected beforehand, it does neither.
void onceConnected(Work work) {
    g_bus_get(
        G_BUS_TYPE_SESSION, nullptr,
        [](GObject*, GAsyncResult* result, gpointer data) {
            const std::unique_ptr<Work> next(static_cast<Work*>(data));
            if (auto* const bus = g_bus_get_finish(result, nullptr)) {
                keep(bus);
            }
            (*next)();
        },
        new Work(std::move(work)));
}

void launched(GObject* source, GAsyncResult* result, gpointer) {
    GError* error = nullptr;
    if (g_app_info_launch_uris_finish(G_APP_INFO(source), result, &error) == FALSE) {
        logFailure(g_desktop_app_info_get_filename(G_DESKTOP_APP_INFO(source)),
                   error != nullptr ? error->message : "unknown reason");
        g_clear_error(&error);
    }
}

void opened(GObject*, GAsyncResult* result, gpointer uri) {
    GError* error = nullptr;
    if (g_app_info_launch_default_for_uri_finish(result, &error) == FALSE) {
        logFailure(static_cast<const char*>(uri), error != nullptr ? error->message : "unknown reason");
        g_clear_error(&error);
    }
    g_free(uri);
}

} // namespace

void launchEntry(const std::filesystem::path& entry) {
    GDesktopAppInfo* const info = g_desktop_app_info_new_from_filename(entry.c_str());
    if (info == nullptr) {
        logFailure(entry.string(), "not a desktop entry of an installed application");
        return;
    }
    onceConnected([info] {
        g_app_info_launch_uris_async(G_APP_INFO(info), nullptr, nullptr, nullptr, launched, nullptr);
        g_object_unref(info);
    });
}

void openUri(const std::string& uri) {
    onceConnected([uri] {
        g_app_info_launch_default_for_uri_async(uri.c_str(), nullptr, nullptr, opened, g_strdup(uri.c_str()));
    });
}

bool hasHandler(const std::string& uri) {
    const auto scheme = uri.substr(0, uri.find(':'));
    const std::unique_ptr<GAppInfo, decltype(&g_object_unref)> handler(
        g_app_info_get_default_for_uri_scheme(scheme.c_str()), g_object_unref);
    return handler != nullptr;
}

std::string uriOf(const std::filesystem::path& file) {
    char* const uri = g_filename_to_uri(file.c_str(), nullptr, nullptr);
    std::string text = uri != nullptr ? uri : "";
    g_free(uri);
    return text;
}

} // namespace ambrel
