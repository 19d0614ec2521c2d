#include "Platform/Linux/LaunchEntry.h"

#include "Core/Logger.h"

#include <string>

#include <gio/gdesktopappinfo.h>
#include <gio/gio.h>

namespace ambrel {

namespace {

constexpr Logger logger("launch");

void logFailure(std::string_view entry, std::string_view why) {
    logger.error("could not open {}: {}", entry, why);
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
    g_app_info_launch_uris_async(G_APP_INFO(info), nullptr, nullptr, nullptr, launched, nullptr);
    g_object_unref(info);
}

void openUri(const std::string& uri) {
    g_app_info_launch_default_for_uri_async(uri.c_str(), nullptr, nullptr, opened, g_strdup(uri.c_str()));
}

std::string uriOf(const std::filesystem::path& file) {
    char* const uri = g_filename_to_uri(file.c_str(), nullptr, nullptr);
    std::string text = uri != nullptr ? uri : "";
    g_free(uri);
    return text;
}

} // namespace ambrel
