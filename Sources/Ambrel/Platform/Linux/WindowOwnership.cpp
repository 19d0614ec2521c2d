#include "Platform/Linux/WindowOwnership.h"

#include "Platform/Linux/ProcFiles.h"

#include <charconv>

#include <strings.h>

namespace ambrel {

namespace {

std::string_view shortName(std::string_view host) {
    return host.substr(0, host.find('.'));
}

bool equalIgnoringCase(std::string_view a, std::string_view b) {
    return a.size() == b.size() && strncasecmp(a.data(), b.data(), a.size()) == 0;
}

/// Some toolkits write the full name of the host and some its first part.
bool isThisHost(std::string_view machine, std::string_view hostName) {
    return machine.empty() || equalIgnoringCase(machine, hostName) ||
           ((machine == shortName(machine) || hostName == shortName(hostName)) &&
            equalIgnoringCase(shortName(machine), shortName(hostName)));
}

} // namespace

WindowOwnership judgeOwnership(const OwnershipClaims& claims, std::string_view hostName,
                               const InnermostPid& innermostPid) {
    const bool local = isThisHost(claims.clientMachine, hostName);
    const auto& server = claims.serverPid;
    const auto& claimed = claims.claimedPid;
    if (local && server && (!claimed || claimed == server || claimed == innermostPid(*server))) {
        return {.process = server, .suspects = {}};
    }
    WindowOwnership doubtful;
    if (server) {
        doubtful.suspects.push_back(*server);
    }
    if (local && claimed && claimed != server) {
        doubtful.suspects.push_back(*claimed);
    }
    return doubtful;
}

std::optional<ProcessId> parseInnermostPid(std::string_view status) {
    constexpr std::string_view key = "\nNSpid:";
    const auto start = status.find(key);
    if (start == std::string_view::npos) {
        return std::nullopt;
    }
    auto line = status.substr(start + key.size());
    line = line.substr(0, line.find('\n'));
    const auto last = line.find_last_of("\t ");
    const auto number = last == std::string_view::npos ? line : line.substr(last + 1);
    ProcessId pid = 0;
    const auto [end, error] = std::from_chars(number.data(), number.data() + number.size(), pid);
    return error == std::errc() && end == number.data() + number.size() ? std::optional(pid) : std::nullopt;
}

std::optional<ProcessId> readInnermostPid(ProcessId pid) {
    const auto status = readProcFile(pid, "status");
    return status ? parseInnermostPid(*status) : std::nullopt;
}

} // namespace ambrel
