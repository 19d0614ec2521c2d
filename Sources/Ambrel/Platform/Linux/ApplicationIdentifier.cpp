#include "Platform/Linux/ApplicationIdentifier.h"

#include "Platform/Linux/ApplicationMatch.h"
#include "Platform/Linux/KnownApplications.h"
#include "Platform/Linux/LaunchEntry.h"
#include "Platform/Linux/ProcFiles.h"

namespace ambrel {

namespace {

ApplicationClues gatherClues(ProcessId pid, const WindowIdentityFacts& window) {
    ApplicationClues clues{.sandboxEntry = {}, .window = window, .launchedEntry = {}, .scopeEntry = {}};
    if (const auto info = readProcFile(pid, "root/.flatpak-info")) {
        clues.sandboxEntry = parseFlatpakApplication(*info).value_or("");
    }
    if (const auto environ = readProcFile(pid, "environ")) {
        if (clues.sandboxEntry.empty()) {
            clues.sandboxEntry = snapEntry(*environ, executableOf(pid).value_or(""));
        }
        clues.launchedEntry = launchedEntry(*environ, pid);
    }
    if (const auto cgroup = readProcFile(pid, "cgroup")) {
        clues.scopeEntry = parseScopeApplication(*cgroup, pid).value_or("");
    }
    return clues;
}

const KnownApplication* knownWithoutEntry(ProcessId pid, const WindowIdentityFacts& window) {
    // The program's file first: a process's short name is cut at 15 characters.
    const auto line = readProcFile(pid, "comm").value_or("");
    const std::string name(line.begin(), std::find(line.begin(), line.end(), '\n'));
    const auto program = executableOf(pid).value_or("").filename().string();
    for (const auto& text : {program, name, window.wmClassName, window.wmClassInstance}) {
        if (const auto* row = text.empty() ? nullptr : KnownApplications::byProcessName(text)) {
            return row;
        }
    }
    return nullptr;
}

} // namespace

ApplicationIdentity ApplicationIdentifier::identify(ProcessId pid, const WindowIdentityFacts& window) {
    const auto id = matchApplication(entries_.index(), gatherClues(pid, window));
    if (const auto entry = id ? entries_.entry(*id) : std::nullopt) {
        return {.bundleIdentifier = identifierOf(entry->id),
                .localizedName = entry->localizedName,
                .entry = entry->path,
                .shownInMenus = entry->shownInMenus};
    }
    ApplicationIdentity identity;
    if (const auto* row = knownWithoutEntry(pid, window)) {
        identity.bundleIdentifier = row->identifier;
    }
    return identity;
}

std::optional<InstalledApplication> ApplicationIdentifier::installedApplication(const std::string& bundleIdentifier) {
    const auto id = entryOf(bundleIdentifier);
    const auto entry = id ? entries_.entry(*id) : std::nullopt;
    return entry ? std::optional(installed(*entry)) : std::nullopt;
}

std::vector<InstalledApplication> ApplicationIdentifier::installedApplications() {
    std::vector<InstalledApplication> applications;
    for (const auto& entry : entries_.shownInMenus()) {
        applications.push_back(installed(entry));
    }
    return applications;
}

InstalledApplication ApplicationIdentifier::installed(const DesktopEntry& entry) {
    return {.url = entry.path,
            .displayName = entry.localizedName,
            .bundleIdentifier = identifierOf(entry.id),
            .icon = entry.icon};
}

void ApplicationIdentifier::open(const std::filesystem::path& url) {
    launchEntry(url);
}

std::string ApplicationIdentifier::identifierOf(const std::string& entryId) {
    const auto* row = KnownApplications::byEntry(entryId);
    if (row != nullptr && row->identifier != KnownApplications::textEditor) {
        return std::string(row->identifier);
    }
    return entryId == textEditorEntry() ? std::string(KnownApplications::textEditor) : entryId;
}

std::optional<std::string> ApplicationIdentifier::entryOf(const std::string& bundleIdentifier) {
    if (bundleIdentifier == KnownApplications::textEditor) {
        return textEditorEntry();
    }
    for (const auto& row : KnownApplications::rows()) {
        if (row.identifier == bundleIdentifier) {
            if (auto id = entries_.index().byPattern(row.entry)) {
                return id;
            }
        }
    }
    const auto id = entries_.index().byId(bundleIdentifier);
    // An entry that goes by another identifier is another application.
    return id && identifierOf(*id) == bundleIdentifier ? id : std::nullopt;
}

std::optional<std::string> ApplicationIdentifier::textEditorEntry() {
    if (auto handler = entries_.textHandler()) {
        return handler;
    }
    for (const auto& row : KnownApplications::rows()) {
        if (row.identifier == KnownApplications::textEditor) {
            if (auto id = entries_.index().byPattern(row.entry)) {
                return id;
            }
        }
    }
    return std::nullopt;
}

} // namespace ambrel
