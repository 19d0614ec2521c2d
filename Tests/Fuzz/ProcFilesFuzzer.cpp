#include "Fuzz/Require.h"
#include "Platform/Linux/ApplicationMatch.h"
#include "Platform/Linux/ProcFiles.h"

#include <string>

namespace {

using namespace ambrel;

constexpr ProcessId ownPid = 77;

void readEnvironment(std::string_view text) {
    for (const std::string name : {"A", "GIO_LAUNCHED_DESKTOP_FILE"}) {
        if (const auto value = environmentValue(text, name)) {
            const auto assignment = name + "=" + *value + std::string(1, '\0');
            require(text.starts_with(assignment) || text.find('\0' + assignment) != std::string_view::npos);
        }
    }
    const bool ours = environmentValue(text, "GIO_LAUNCHED_DESKTOP_FILE_PID") == std::to_string(ownPid);
    require(ours || launchedEntry(text, ownPid).empty());
    require(snapEntry(text, "/usr/bin/program").empty());
}

void readScope(std::string_view text) {
    if (parseScopeApplication(text, ownPid)) {
        require(text.find("77.scope") != std::string_view::npos);
    }
    require(!parseScopeApplication(text, -1) || text.find("-1.scope") != std::string_view::npos);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    const auto text = asText(data, size);
    readEnvironment(text);
    readScope(text);
    require(!(statusBelongsTo(text, 1000) && statusBelongsTo(text, 0)));
    if (const auto application = parseFlatpakApplication(text)) {
        require(!application->empty() && text.find("name=" + *application) != std::string_view::npos);
    }
    if (const auto ticks = parseStartTicks(text)) {
        require(text.find(std::to_string(*ticks % 10)) != std::string_view::npos);
    }
    if (const auto facts = parseStat(text)) {
        require(text.find(std::string(") ") + facts->state) != std::string_view::npos);
    }
    if (labelledNumber(text, "wchar")) {
        require(text.find("wchar: ") != std::string_view::npos);
    }
    for (const auto number : parseNumbers(text)) {
        require(text.find(std::to_string(number % 10)) != std::string_view::npos);
    }
    require(!parseInnermostId(text) || text.find("NSpid:\t") != std::string_view::npos);
    return 0;
}
