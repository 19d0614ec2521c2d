#pragma once

#include "Platform/Linux/DesktopEntryIndex.h"

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace ambrel {

/// The facts of one desktop entry.
struct DesktopEntry {
    std::string id; ///< without its last ".desktop"
    std::filesystem::path path;
    std::string localizedName;
    std::string icon; ///< a name, or a path; empty where there is none
    bool shownInMenus = false;
};

/// The desktop entries of this user's session. Read at the first question, and again at the next one after an
/// entry or a default application has changed. Main thread only.
class DesktopEntries {
public:
    DesktopEntries();
    DesktopEntries(const DesktopEntries&) = delete;
    DesktopEntries& operator=(const DesktopEntries&) = delete;
    ~DesktopEntries();

    [[nodiscard]] const DesktopEntryIndex& index();
    /// Absent if there is no entry of this id.
    [[nodiscard]] std::optional<DesktopEntry> entry(const std::string& id) const;
    [[nodiscard]] std::vector<DesktopEntry> shownInMenus() const;
    /// The id of the default handler of plain text; absent if there is none, or it runs in a terminal.
    [[nodiscard]] std::optional<std::string> textHandler();

private:
    struct Monitor;

    void refresh();

    std::unique_ptr<Monitor> monitor_;
    bool stale_ = true;
    DesktopEntryIndex index_;
    std::optional<std::string> textHandler_;
};

} // namespace ambrel
