#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

namespace ambrel {

/// Why a file operation failed.
struct FileFailure {
    int code;                ///< an errno value
    std::string description; ///< in words, for a log line
};

/// The whole content of a regular file. Fails with EISDIR for a folder, EINVAL for another special file, and with
/// EFBIG for more than `limit` bytes. Never blocks on a pipe.
[[nodiscard]] std::variant<std::string, FileFailure> readFile(const std::filesystem::path& path, std::size_t limit);

/// The last `limit` bytes of a regular file, or all of a shorter one. Fails as `readFile` does, never for its size.
[[nodiscard]] std::variant<std::string, FileFailure> readFileTail(const std::filesystem::path& path, std::size_t limit);

/// Puts `content` in the place of `path`, whole or not at all, also across a crash: a temporary file in the same
/// folder, flushed and renamed, with permissions 0600. A link is followed, and its target replaced; a folder or
/// another special file is left as it is. Copies of the program that save at the same time take turns.
[[nodiscard]] std::optional<FileFailure> replaceFile(const std::filesystem::path& path, std::string_view content);

/// Moves a file, a folder or a link within its folder; fails with EEXIST rather than overwrite anything.
[[nodiscard]] std::optional<FileFailure> moveFile(const std::filesystem::path& from, const std::filesystem::path& to);

/// Creates a folder with what is missing above it, each 0700.
[[nodiscard]] std::optional<FileFailure> createFolder(const std::filesystem::path& path);

} // namespace ambrel
