#include "Platform/Linux/LinkOpener.h"

#include "Core/Logger.h"
#include "Platform/Environment.h"
#include "Platform/Linux/LaunchEntry.h"
#include "Platform/Linux/SessionBus.h"

#include <array>
#include <string_view>

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QStringList>

namespace ambrel {

namespace {

constexpr Logger logger("launch");
constexpr std::string_view settingsScheme = "x-apple.systempreferences:";

struct Settings {
    std::string_view desktop; ///< as XDG_CURRENT_DESKTOP names it; empty for what any desktop may have
    const char* entry;
};

/// Where a desktop lets its user choose or start a window manager, the best first.
constexpr std::array settingsOfDesktops{Settings{"XFCE", "xfce-session-settings"},
                                        Settings{"XFCE", "xfce-wm-settings"},
                                        Settings{"MATE", "mate-session-properties"},
                                        Settings{"MATE", "mate-window-properties"},
                                        Settings{"LXQt", "lxqt-config-session"},
                                        Settings{"KDE", "systemsettings"},
                                        Settings{"GNOME", "org.gnome.Settings"},
                                        Settings{"X-Cinnamon", "cinnamon-settings"},
                                        Settings{"", "obconf"}};

/// What shows updates, and may not know its way to a page.
constexpr std::array softwareCentres{"org.gnome.Software", "org.kde.discover", "org.gnome.Packages"};

bool names(std::string_view desktops, std::string_view name) {
    for (auto rest = desktops; !rest.empty();) {
        const auto end = std::min(rest.find(':'), rest.size());
        if (rest.substr(0, end) == name) {
            return true;
        }
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
    return name.empty();
}

QDBusMessage showItems(const std::filesystem::path& file) {
    auto message = QDBusMessage::createMethodCall("org.freedesktop.FileManager1", "/org/freedesktop/FileManager1",
                                                  "org.freedesktop.FileManager1", "ShowItems");
    message.setArguments({QStringList(QString::fromStdString(uriOf(file))), QString()});
    return message;
}

} // namespace

void LinkOpener::open(const std::string& url) {
    if (url.starts_with(settingsScheme)) {
        openWindowManagerSettings();
    } else {
        openUri(url);
    }
}

void LinkOpener::openWindowManagerSettings() {
    const auto desktops = environment_.value("XDG_CURRENT_DESKTOP").value_or("");
    for (const auto& settings : settingsOfDesktops) {
        if (const auto entry = names(desktops, settings.desktop) ? entries_.entry(settings.entry) : std::nullopt) {
            launchEntry(entry->path);
            return;
        }
    }
    logger.notice("no settings for the window manager of this desktop are known");
}

bool LinkOpener::openSoftwareCentre(const std::string& page) {
    if (hasHandler(page)) {
        openUri(page);
        return true;
    }
    for (const auto* const centre : softwareCentres) {
        if (const auto entry = entries_.entry(centre)) {
            launchEntry(entry->path);
            return true;
        }
    }
    return false;
}

void LinkOpener::reveal(const std::filesystem::path& file) {
    const auto openFolder = [folder = file.parent_path()] {
        openUri(uriOf(folder));
    };
    const auto bus = bus_.connection();
    if (!bus) {
        openFolder();
        return;
    }
    auto* const watcher = new QDBusPendingCallWatcher(bus->asyncCall(showItems(file)));
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, watcher, [watcher, openFolder] {
        if (watcher->isError()) {
            openFolder();
        }
        watcher->deleteLater();
    });
}

} // namespace ambrel
