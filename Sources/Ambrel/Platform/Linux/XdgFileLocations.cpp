#include "Platform/Linux/XdgFileLocations.h"

#include "Platform/Environment.h"

#include <pwd.h>
#include <unistd.h>

namespace ambrel {

std::filesystem::path XdgFileLocations::applicationSupport() const {
    return folder("XDG_CONFIG_HOME", ".config");
}

std::filesystem::path XdgFileLocations::logs() const {
    return folder("XDG_STATE_HOME", ".local/state");
}

std::filesystem::path XdgFileLocations::folder(const std::string& variable, const char* belowHome) const {
    // The rules call a relative path invalid.
    const std::filesystem::path given = environment_.value(variable).value_or("");
    return given.is_absolute() ? given : home() / belowHome;
}

std::filesystem::path XdgFileLocations::home() const {
    std::filesystem::path given = environment_.value("HOME").value_or("");
    if (given.is_absolute()) {
        return given;
    }
    const passwd* const user = getpwuid(getuid());
    return user != nullptr ? user->pw_dir : "/";
}

} // namespace ambrel
