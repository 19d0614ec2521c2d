#pragma once

#include <optional>
#include <span>
#include <string_view>

namespace ambrel {

/// One row of known-applications.tsv.
struct KnownApplication {
    std::string_view identifier;
    std::string_view entry; ///< the id of its desktop entry, perhaps with '*', or a process's name where it has none
    std::string_view windowClass; ///< WM_CLASS where it isn't the entry's id; spellings are separated by '/'
    bool hasEntry = true;
};

/// The applications that go by an identifier of their own rather than by their desktop entry's. Cases make no
/// difference. The table is built at compile time.
struct KnownApplications {
    KnownApplications() = delete;

    static constexpr std::string_view textEditor = "com.apple.TextEdit";

    /// The first row with this desktop entry; null if there is none.
    [[nodiscard]] static const KnownApplication* byEntry(std::string_view entryId);
    /// The first row without a desktop entry whose process has this name or WM_CLASS; null if there is none.
    [[nodiscard]] static const KnownApplication* byProcessName(std::string_view name);
    /// True if one spelling of the row's WM_CLASS is `windowClass`.
    [[nodiscard]] static bool hasWindowClass(const KnownApplication& row, std::string_view windowClass);

    /// All rows, in the order of the file.
    [[nodiscard]] static std::span<const KnownApplication> rows();
};

} // namespace ambrel
