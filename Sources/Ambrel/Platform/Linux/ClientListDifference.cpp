#include "Platform/Linux/ClientListDifference.h"

#include <algorithm>

namespace ambrel {

namespace {

using Ids = std::span<const std::uint32_t>;

std::vector<std::uint32_t> sorted(Ids ids) {
    std::vector<std::uint32_t> copy(ids.begin(), ids.end());
    std::sort(copy.begin(), copy.end());
    return copy;
}

/// Those of `ids` that are not in `others`, in their order, each once.
std::vector<std::uint32_t> missingFrom(Ids others, Ids ids) {
    const auto lookup = sorted(others);
    std::vector<std::uint32_t> missing;
    for (const auto id : ids) {
        if (!std::binary_search(lookup.begin(), lookup.end(), id) &&
            std::find(missing.begin(), missing.end(), id) == missing.end()) {
            missing.push_back(id);
        }
    }
    return missing;
}

/// Takes out what `whole` holds as well: a list that names a window twice has it inside and outside the stretch.
std::vector<std::uint32_t> without(std::vector<std::uint32_t> ids, Ids whole) {
    std::erase_if(ids, [whole](auto id) { return std::find(whole.begin(), whole.end(), id) != whole.end(); });
    return ids;
}

} // namespace

ClientListDifference clientListDifference(Ids before, Ids after) {
    const auto front = std::mismatch(before.begin(), before.end(), after.begin(), after.end());
    const auto oldRest = before.subspan(static_cast<std::size_t>(front.first - before.begin()));
    const auto newRest = after.subspan(static_cast<std::size_t>(front.second - after.begin()));
    const auto back = std::mismatch(oldRest.rbegin(), oldRest.rend(), newRest.rbegin(), newRest.rend());
    const auto oldPart = oldRest.first(static_cast<std::size_t>(oldRest.rend() - back.first));
    const auto newPart = newRest.first(static_cast<std::size_t>(newRest.rend() - back.second));
    return {.added = without(missingFrom(oldPart, newPart), before),
            .removed = without(missingFrom(newPart, oldPart), after)};
}

} // namespace ambrel
