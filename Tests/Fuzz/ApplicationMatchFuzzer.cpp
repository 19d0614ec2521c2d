#include "Fuzz/Require.h"
#include "Platform/Linux/ApplicationMatch.h"
#include "Platform/Linux/AsciiCase.h"
#include "Platform/Linux/DesktopEntryIndex.h"
#include "Platform/Linux/KnownApplications.h"

#include <algorithm>
#include <sstream>
#include <string>
#include <vector>

namespace {

using namespace ambrel;

/// The clues line by line, then three lines for each desktop entry.
struct Desktop {
    explicit Desktop(std::string_view text) {
        std::istringstream lines{std::string(text)};
        for (auto* const clue : {&clues.sandboxEntry, &clues.window.wmClassName, &clues.window.wmClassInstance,
                                 &clues.window.gtkApplicationId, &clues.launchedEntry, &clues.scopeEntry}) {
            std::getline(lines, *clue);
        }
        for (DesktopEntryRecord record; std::getline(lines, record.id);) {
            std::getline(lines, record.windowClass);
            std::getline(lines, record.program);
            record.shownInMenus = record.id.size() % 2 == 0;
            records.push_back(record);
        }
    }

    ApplicationClues clues;
    std::vector<DesktopEntryRecord> records;
};

/// Something in the window or the launch names this very entry.
bool isNamed(const DesktopEntryRecord& record, const ApplicationClues& clues) {
    const auto& window = clues.window;
    for (const auto& id : {window.gtkApplicationId, clues.launchedEntry, clues.scopeEntry}) {
        if (equalWithoutCase(record.id, id)) {
            return true;
        }
    }
    const auto* const known = KnownApplications::byEntry(record.id);
    return std::ranges::any_of(
        std::initializer_list<std::string>{window.wmClassName, window.wmClassInstance}, [&](const auto& name) {
            return !name.empty() &&
                   (equalWithoutCase(record.id, name) || equalWithoutCase(record.windowClass, name) ||
                    equalWithoutCase(record.program, name) || (known != nullptr && !known->windowClass.empty()));
        });
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    const Desktop desktop(asText(data, size));
    const DesktopEntryIndex index(desktop.records);
    const auto match = matchApplication(index, desktop.clues);
    if (!match) {
        return 0;
    }
    const auto& sandbox = desktop.clues.sandboxEntry;
    require(sandbox.empty() || equalWithoutCase(*match, sandbox));
    require(!sandbox.empty() || std::ranges::any_of(desktop.records, [&](const auto& record) {
        return record.id == *match && isNamed(record, desktop.clues);
    }));
    static_cast<void>(desktopEntryId(*match));
    return 0;
}
