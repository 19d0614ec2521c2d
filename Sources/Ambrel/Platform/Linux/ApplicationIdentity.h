#pragma once

#include <filesystem>
#include <optional>
#include <string>

namespace ambrel {

/// What a process's window says of its application; absent texts are empty.
struct WindowIdentityFacts {
    std::string wmClassInstance;
    std::string wmClassName;
    std::string gtkApplicationId;
};

/// Which installed application a process is.
struct ApplicationIdentity {
    std::optional<std::string> bundleIdentifier;
    std::optional<std::string> localizedName;
    std::optional<std::filesystem::path> entry; ///< its desktop entry
    bool shownInMenus = false;
};

} // namespace ambrel
