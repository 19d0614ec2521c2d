#include "Platform/Linux/ApplicationMatch.h"

#include "Platform/Linux/DesktopEntryIndex.h"
#include "Platform/Linux/KnownApplications.h"
#include "Platform/Linux/ProcFiles.h"

namespace ambrel {

namespace {

using Match = std::optional<std::string>;

/// An entry that doesn't tell its WM_CLASS, but is known to have this one.
Match byKnownWindowClass(const DesktopEntryIndex& index, std::string_view windowClass) {
    for (const auto& row : KnownApplications::rows()) {
        if (row.hasEntry && KnownApplications::hasWindowClass(row, windowClass)) {
            if (auto id = index.byPattern(row.entry)) {
                return id;
            }
        }
    }
    return std::nullopt;
}

/// The class names the program; the instance is often its user's choice.
template <typename Question> Match byEither(const WindowIdentityFacts& window, Question question) {
    auto match = question(window.wmClassName);
    return match ? match : question(window.wmClassInstance);
}

Match byWindow(const DesktopEntryIndex& index, const WindowIdentityFacts& window) {
    if (auto match = byEither(window, [&](const auto& name) { return index.byWindowClass(name); })) {
        return match;
    }
    if (auto match = byEither(window, [&](const auto& name) { return index.byId(name); })) {
        return match;
    }
    return byEither(window, [&](const auto& name) { return byKnownWindowClass(index, name); });
}

} // namespace

std::optional<std::string> matchApplication(const DesktopEntryIndex& index, const ApplicationClues& clues) {
    if (!clues.sandboxEntry.empty()) {
        return index.byId(clues.sandboxEntry);
    }
    if (auto match = byWindow(index, clues.window)) {
        return match;
    }
    for (const auto& id : {clues.window.gtkApplicationId, clues.launchedEntry, clues.scopeEntry}) {
        if (auto match = index.byId(id)) {
            return match;
        }
    }
    return byEither(clues.window, [&](const auto& name) { return index.byProgramName(name); });
}

std::string snapEntry(std::string_view environ, const std::filesystem::path& executable) {
    const auto name = environmentValue(environ, "SNAP_INSTANCE_NAME");
    if (!name || name->empty()) {
        return {};
    }
    const auto path = executable.string();
    if (!path.starts_with("/snap/" + *name + "/") && !path.starts_with("/var/lib/snapd/snap/" + *name + "/")) {
        return {};
    }
    const auto hint = environmentValue(environ, "BAMF_DESKTOP_FILE_HINT");
    return hint && !hint->empty() ? desktopEntryId(*hint) : *name + "_" + *name;
}

std::string launchedEntry(std::string_view environ, ProcessId pid) {
    const auto file = environmentValue(environ, "GIO_LAUNCHED_DESKTOP_FILE");
    const auto launched = environmentValue(environ, "GIO_LAUNCHED_DESKTOP_FILE_PID");
    return file && launched == std::to_string(pid) ? desktopEntryId(*file) : std::string();
}

} // namespace ambrel
