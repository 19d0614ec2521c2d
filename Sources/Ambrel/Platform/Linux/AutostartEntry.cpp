// GIO's headers and Qt's keywords don't go together: this file comes without Qt.
#include "Platform/Linux/AutostartEntry.h"

#include "Core/Files.h"
#include "Platform/Environment.h"
#include "Platform/FileLocations.h"

#include <algorithm>
#include <array>
#include <memory>
#include <string_view>
#include <system_error>
#include <vector>

#include <glib.h>

#include <unistd.h>

namespace ambrel {

namespace {

constexpr auto group = G_KEY_FILE_DESKTOP_GROUP;
constexpr std::size_t entryLimit = std::size_t{256} * 1024;

struct FreeKeyFile {
    void operator()(GKeyFile* file) const { g_key_file_free(file); }
};
using KeyFile = std::unique_ptr<GKeyFile, FreeKeyFile>;

/// Null where there is no desktop entry.
KeyFile readEntry(const std::filesystem::path& path) {
    const auto content = readFile(path, entryLimit);
    const auto* const text = std::get_if<std::string>(&content);
    KeyFile file(g_key_file_new());
    constexpr auto keepAll = static_cast<GKeyFileFlags>(G_KEY_FILE_KEEP_COMMENTS | G_KEY_FILE_KEEP_TRANSLATIONS);
    const bool isEntry = text != nullptr &&
                         g_key_file_load_from_data(file.get(), text->data(), text->size(), keepAll, nullptr) != FALSE &&
                         g_key_file_has_group(file.get(), group) != FALSE;
    return isEntry ? std::move(file) : nullptr;
}

LoginItemFailure write(const KeyFile& file, const std::filesystem::path& path) {
    gsize length = 0;
    const std::unique_ptr<char, decltype(&g_free)> text(g_key_file_to_data(file.get(), &length, nullptr), g_free);
    auto failure = createFolder(path.parent_path());
    failure = failure ? failure : replaceFile(path, {text.get(), length});
    return failure ? std::optional(failure->description) : std::nullopt;
}

std::string value(const KeyFile& file, const char* key) {
    const std::unique_ptr<char, decltype(&g_free)> text(g_key_file_get_string(file.get(), group, key, nullptr), g_free);
    return text ? text.get() : "";
}

/// Absent where the key is.
std::optional<std::vector<std::string>> list(const KeyFile& file, const char* key) {
    const std::unique_ptr<char*, decltype(&g_strfreev)> texts(
        g_key_file_get_string_list(file.get(), group, key, nullptr, nullptr), g_strfreev);
    if (!texts) {
        return std::nullopt;
    }
    return std::vector<std::string>(texts.get(), texts.get() + g_strv_length(texts.get()));
}

bool names(const std::vector<std::string>& desktops, std::string_view currentDesktops) {
    return std::any_of(desktops.begin(), desktops.end(), [&](const std::string& desktop) {
        for (auto rest = currentDesktops; !rest.empty();) {
            const auto end = std::min(rest.find(':'), rest.size());
            if (rest.substr(0, end) == desktop) {
                return true;
            }
            rest.remove_prefix(std::min(end + 1, rest.size()));
        }
        return false;
    });
}

bool isOff(const KeyFile& file, std::string_view currentDesktops) {
    const auto only = list(file, G_KEY_FILE_DESKTOP_KEY_ONLY_SHOW_IN);
    const auto never = list(file, G_KEY_FILE_DESKTOP_KEY_NOT_SHOW_IN);
    const bool isElsewhere = (only && !names(*only, currentDesktops)) || (never && names(*never, currentDesktops));
    return isElsewhere || value(file, G_KEY_FILE_DESKTOP_KEY_HIDDEN) == "true" ||
           value(file, "X-GNOME-Autostart-enabled") == "false" || value(file, "X-MATE-Autostart-enabled") == "false";
}

bool isExecutable(const std::string& program) {
    std::error_code error;
    return std::filesystem::is_regular_file(program, error) && access(program.c_str(), X_OK) == 0;
}

/// A program that is looked for by its name alone counts as there: who wrote that, knew where.
bool isThere(const std::string& program) {
    return !program.empty() && (program.front() != '/' || isExecutable(program));
}

std::string programOf(const KeyFile& file) {
    char** arguments = nullptr;
    if (g_shell_parse_argv(value(file, G_KEY_FILE_DESKTOP_KEY_EXEC).c_str(), nullptr, &arguments, nullptr) == FALSE) {
        return {};
    }
    const std::unique_ptr<char*, decltype(&g_strfreev)> owned(arguments, g_strfreev);
    std::string program = arguments[0];
    for (auto at = program.find("%%"); at != std::string::npos; at = program.find("%%", at + 1)) {
        program.erase(at, 1);
    }
    return program;
}

bool startsSomething(const KeyFile& file) {
    const auto condition = value(file, G_KEY_FILE_DESKTOP_KEY_TRY_EXEC);
    return isThere(programOf(file)) && (condition.empty() || isThere(condition));
}

/// A command of the user's own is kept as long as its program is there.
void pointTo(const std::filesystem::path& executable, const KeyFile& file) {
    if (!isThere(programOf(file))) {
        const auto command = quotedForExec(executable.string());
        g_key_file_set_string(file.get(), group, G_KEY_FILE_DESKTOP_KEY_EXEC, command.c_str());
    }
    g_key_file_set_string(file.get(), group, G_KEY_FILE_DESKTOP_KEY_TRY_EXEC, executable.c_str());
}

KeyFile freshEntry(const std::filesystem::path& executable) {
    constexpr std::array<std::array<const char*, 2>, 6> values{
        {{G_KEY_FILE_DESKTOP_KEY_TYPE, G_KEY_FILE_DESKTOP_TYPE_APPLICATION},
         {G_KEY_FILE_DESKTOP_KEY_NAME, "Ambrel"},
         {G_KEY_FILE_DESKTOP_KEY_COMMENT, "Quits applications when their last window closes"},
         {G_KEY_FILE_DESKTOP_KEY_ICON, "app.ambrel.Ambrel"},
         {G_KEY_FILE_DESKTOP_KEY_TERMINAL, "false"},
         {"X-GNOME-Autostart-enabled", "true"}}};
    KeyFile file(g_key_file_new());
    for (const auto& [key, text] : values) {
        g_key_file_set_string(file.get(), group, key, text);
    }
    pointTo(executable, file);
    return file;
}

} // namespace

std::string quotedForExec(const std::string& argument) {
    std::string quoted = "\"";
    for (const char each : argument) {
        if (std::string_view("\"`$\\").find(each) != std::string_view::npos) {
            quoted += '\\';
        }
        // A percent sign begins a field code, also within quotes.
        quoted += each == '%' ? "%%" : std::string(1, each);
    }
    return quoted + '"';
}

std::filesystem::path AutostartEntry::path() const {
    return files_.applicationSupport() / "autostart" / "app.ambrel.Ambrel.desktop";
}

LoginItemStatus AutostartEntry::status() const {
    const auto file = readEntry(path());
    if (!file) {
        return LoginItemStatus::notRegistered;
    }
    if (isOff(file, environment_.value("XDG_CURRENT_DESKTOP").value_or(""))) {
        return LoginItemStatus::requiresApproval;
    }
    return startsSomething(file) ? LoginItemStatus::enabled : LoginItemStatus::notFound;
}

LoginItemFailure AutostartEntry::registerItem() {
    std::error_code error;
    // What a link points to belongs to somebody else.
    if (std::filesystem::is_symlink(path(), error)) {
        std::filesystem::remove(path(), error);
    }
    return write(freshEntry(executable_), path());
}

LoginItemFailure AutostartEntry::unregisterItem() {
    std::error_code error;
    std::filesystem::remove(path(), error);
    return error ? std::optional(error.message()) : std::nullopt;
}

LoginItemFailure AutostartEntry::followProgram() {
    if (status() != LoginItemStatus::notFound) {
        return std::nullopt;
    }
    const auto file = readEntry(path());
    pointTo(executable_, file);
    return write(file, path());
}

} // namespace ambrel
