#include "Subject.h"

#include "Platform/Linux/AsciiCase.h"
#include "Platform/Linux/ProcFiles.h"

#include <algorithm>
#include <utility>

namespace ambrel {

namespace {

bool holds(const std::vector<ProcessId>& list, ProcessId pid) {
    return std::find(list.begin(), list.end(), pid) != list.end();
}

} // namespace

Subject::Subject(std::string entry, std::string sandbox, std::vector<ProcessId> processes)
    : entry_(std::move(entry)), sandbox_(std::move(sandbox)), processes_(std::move(processes)) {
    for (const auto pid : processes_) {
        if (const auto status = readProcFile(pid, "status")) {
            inner_.push_back(parseInnermostId(*status).value_or(pid));
        }
    }
}

bool Subject::has(ProcessId pid) const {
    return holds(processes_, pid);
}

bool Subject::mayHave(ProcessId toldPid) const {
    return has(toldPid) || holds(inner_, toldPid);
}

bool Subject::isNamed(std::string_view name) const {
    constexpr std::string_view suffix = ".desktop";
    if (name.ends_with(suffix)) {
        name.remove_suffix(suffix.size());
    }
    return !name.empty() && (equalWithoutCase(name, entry_) || equalWithoutCase(name, sandbox_));
}

bool Subject::contains(ProcessId pid) const {
    if (has(pid)) {
        return true;
    }
    const auto info = sandbox_.empty() ? std::nullopt : readProcFile(pid, "root/.flatpak-info");
    return info && parseFlatpakApplication(*info) == sandbox_;
}

} // namespace ambrel
