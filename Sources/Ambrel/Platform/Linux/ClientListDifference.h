#pragma once

#include <cstdint>
#include <span>
#include <vector>

namespace ambrel {

/// How one list of windows became another.
struct ClientListDifference {
    std::vector<std::uint32_t> added; ///< in the order of the new list
    std::vector<std::uint32_t> removed;

    bool operator==(const ClientListDifference&) const = default;
};

/// The order of either list does not matter; the cost is that of the stretch between what they have in common
/// at both ends.
[[nodiscard]] ClientListDifference clientListDifference(std::span<const std::uint32_t> before,
                                                        std::span<const std::uint32_t> after);

} // namespace ambrel
