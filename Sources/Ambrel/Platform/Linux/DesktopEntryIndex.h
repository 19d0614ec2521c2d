#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace ambrel {

/// What matching needs to know of one desktop entry.
struct DesktopEntryRecord {
    std::string id;          ///< without its last ".desktop"
    std::string windowClass; ///< StartupWMClass; empty where there is none
    std::string program;     ///< the file name of the program that it starts
    bool shownInMenus = false;
};

/// The desktop entries by the texts that processes are matched with. Cases make no difference.
class DesktopEntryIndex {
public:
    DesktopEntryIndex() = default;
    explicit DesktopEntryIndex(std::vector<DesktopEntryRecord> records);

    /// The id as its file spells it; absent where there is no such entry.
    [[nodiscard]] std::optional<std::string> byId(std::string_view id) const;
    /// The first entry by id that matches a pattern with '*'; a plain id matches itself.
    [[nodiscard]] std::optional<std::string> byPattern(std::string_view pattern) const;
    /// The entry with this StartupWMClass. Of several: the one whose id is the class, else the first by id that
    /// menus show, else the first by id.
    [[nodiscard]] std::optional<std::string> byWindowClass(std::string_view windowClass) const;
    /// The only entry whose id ends in "." and this name, if the program it starts has this name too.
    [[nodiscard]] std::optional<std::string> byProgramName(std::string_view name) const;

private:
    std::vector<DesktopEntryRecord> records_; ///< by id
};

/// The id of a desktop entry file: its path below a folder "applications" or "autostart" with hyphens for slashes,
/// without its last ".desktop".
[[nodiscard]] std::string desktopEntryId(std::string_view path);

} // namespace ambrel
