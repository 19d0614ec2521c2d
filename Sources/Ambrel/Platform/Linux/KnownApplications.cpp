#include "Platform/Linux/KnownApplications.h"

#include "Platform/Linux/AsciiCase.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <string>

#include <fnmatch.h>

namespace ambrel {

namespace {

constexpr auto table = std::to_array<KnownApplication>({
#include "KnownApplicationsTable.inc"
});

consteval auto sortedByEntry() {
    std::array<std::uint16_t, table.size()> order{};
    for (std::size_t i = 0; i < order.size(); ++i) {
        order[i] = static_cast<std::uint16_t>(i);
    }
    std::sort(order.begin(), order.end(), [](std::uint16_t left, std::uint16_t right) {
        const bool same = equalWithoutCase(table[left].entry, table[right].entry);
        return same ? left < right : lessWithoutCase(table[left].entry, table[right].entry);
    });
    return order;
}

constexpr auto byEntryOrder = sortedByEntry();

const KnownApplication* findEntry(std::string_view entry, bool hasEntry) {
    const auto less = [](std::uint16_t index, std::string_view key) {
        return lessWithoutCase(table[index].entry, key);
    };
    auto row = std::lower_bound(byEntryOrder.begin(), byEntryOrder.end(), entry, less);
    for (; row != byEntryOrder.end() && equalWithoutCase(table[*row].entry, entry); ++row) {
        if (table[*row].hasEntry == hasEntry) {
            return &table[*row];
        }
    }
    return nullptr;
}

} // namespace

const KnownApplication* KnownApplications::byEntry(std::string_view entryId) {
    if (const auto* row = findEntry(entryId, true)) {
        return row;
    }
    const auto found = std::ranges::find_if(table, [id = std::string(entryId)](const auto& row) {
        return row.hasEntry && row.entry.find('*') != std::string_view::npos &&
               fnmatch(row.entry.data(), id.c_str(), FNM_CASEFOLD) == 0;
    });
    return found != table.end() ? &*found : nullptr;
}

const KnownApplication* KnownApplications::byProcessName(std::string_view name) {
    if (const auto* row = findEntry(name, false)) {
        return row;
    }
    const auto found =
        std::ranges::find_if(table, [name](const auto& row) { return !row.hasEntry && hasWindowClass(row, name); });
    return found != table.end() ? &*found : nullptr;
}

bool KnownApplications::hasWindowClass(const KnownApplication& row, std::string_view windowClass) {
    for (auto spellings = row.windowClass; !spellings.empty();) {
        const auto spelling = spellings.substr(0, spellings.find('/'));
        if (equalWithoutCase(spelling, windowClass)) {
            return true;
        }
        spellings.remove_prefix(std::min(spelling.size() + 1, spellings.size()));
    }
    return false;
}

std::span<const KnownApplication> KnownApplications::rows() {
    return table;
}

} // namespace ambrel
