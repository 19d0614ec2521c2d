#include "Platform/Linux/DesktopEntryIndex.h"

#include "Platform/Linux/AsciiCase.h"

#include <algorithm>
#include <utility>

#include <fnmatch.h>

namespace ambrel {

namespace {

bool idLess(const DesktopEntryRecord& left, const DesktopEntryRecord& right) {
    if (equalWithoutCase(left.id, right.id)) {
        return left.id < right.id;
    }
    return lessWithoutCase(left.id, right.id);
}

bool endsInComponent(std::string_view id, std::string_view name) {
    return id.size() > name.size() && id[id.size() - name.size() - 1] == '.' &&
           equalWithoutCase(id.substr(id.size() - name.size()), name);
}

} // namespace

DesktopEntryIndex::DesktopEntryIndex(std::vector<DesktopEntryRecord> records) : records_(std::move(records)) {
    // A file called ".desktop" would stand for every process of which nothing is known.
    std::erase_if(records_, [](const auto& record) { return record.id.empty(); });
    std::sort(records_.begin(), records_.end(), idLess);
    records_.shrink_to_fit();
}

std::optional<std::string> DesktopEntryIndex::byId(std::string_view id) const {
    const auto found =
        std::lower_bound(records_.begin(), records_.end(), id,
                         [](const auto& record, std::string_view key) { return lessWithoutCase(record.id, key); });
    if (found == records_.end() || !equalWithoutCase(found->id, id)) {
        return std::nullopt;
    }
    return found->id;
}

std::optional<std::string> DesktopEntryIndex::byPattern(std::string_view pattern) const {
    if (pattern.find('*') == std::string_view::npos) {
        return byId(pattern);
    }
    const auto found =
        std::find_if(records_.begin(), records_.end(), [glob = std::string(pattern)](const auto& record) {
            return fnmatch(glob.c_str(), record.id.c_str(), FNM_CASEFOLD) == 0;
        });
    return found != records_.end() ? std::optional(found->id) : std::nullopt;
}

std::optional<std::string> DesktopEntryIndex::byWindowClass(std::string_view windowClass) const {
    const DesktopEntryRecord* best = nullptr;
    const auto rank = [&](const auto& record) {
        return equalWithoutCase(record.id, windowClass) ? 2 : record.shownInMenus ? 1 : 0;
    };
    for (const auto& record : records_) {
        const bool matches = !windowClass.empty() && equalWithoutCase(record.windowClass, windowClass);
        if (matches && (best == nullptr || rank(record) > rank(*best))) {
            best = &record;
        }
    }
    return best != nullptr ? std::optional(best->id) : std::nullopt;
}

std::optional<std::string> DesktopEntryIndex::byProgramName(std::string_view name) const {
    const auto matches = [name](const auto& record) {
        return endsInComponent(record.id, name);
    };
    const auto found = std::find_if(records_.begin(), records_.end(), matches);
    if (name.empty() || found == records_.end() || !equalWithoutCase(found->program, name) ||
        std::any_of(found + 1, records_.end(), matches)) {
        return std::nullopt;
    }
    return found->id;
}

std::string desktopEntryId(std::string_view path) {
    constexpr std::string_view suffix = ".desktop";
    auto start = path.rfind('/') + 1;
    for (const std::string_view folder : {"/applications/", "/autostart/"}) {
        if (const auto found = path.rfind(folder); found != std::string_view::npos) {
            start = found + folder.size();
            break;
        }
    }
    std::string id(path.substr(start));
    if (id.ends_with(suffix)) {
        id.resize(id.size() - suffix.size());
    }
    std::replace(id.begin(), id.end(), '/', '-');
    return id;
}

} // namespace ambrel
