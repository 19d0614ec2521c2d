#include "Core/FileDescriptor.h"
#include "Core/FileFailures.h"
#include "Core/Files.h"

#include <cerrno>
#include <cstdio>

#include <fmt/format.h>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>

namespace ambrel {

namespace {

namespace fs = std::filesystem;

/// Where a chain of links ends, whether or not there is anything.
std::variant<fs::path, FileFailure> followLinks(fs::path path) {
    constexpr int kernelsOwnLimit = 40;
    for (int links = 0; links < kernelsOwnLimit; ++links) {
        std::error_code error;
        if (!fs::is_symlink(fs::symlink_status(path, error))) {
            return path;
        }
        const auto target = fs::read_symlink(path, error);
        if (error) {
            return failure(error.value());
        }
        path = path.parent_path() / target;
    }
    return failure(ELOOP);
}

/// Why `path` can't be replaced. Renaming over a device would work, and destroy it.
std::optional<FileFailure> objection(const fs::path& path) {
    struct stat status {};
    if (::lstat(path.c_str(), &status) != 0) {
        return errno == ENOENT ? std::nullopt : std::optional(lastFailure());
    }
    if (S_ISREG(status.st_mode)) {
        return std::nullopt;
    }
    return failure(S_ISDIR(status.st_mode) ? EISDIR : EINVAL);
}

bool isStillNamed(const FileDescriptor& file, const fs::path& name) {
    struct stat opened {};
    struct stat named {};
    return ::fstat(file.number(), &opened) == 0 && ::lstat(name.c_str(), &named) == 0 &&
           opened.st_ino == named.st_ino && opened.st_dev == named.st_dev;
}

/// The temporary file, locked for us. Its name is fixed, so that crashes leave at most one behind; whoever held it
/// before us may have renamed or removed it while we waited.
FileDescriptor openTemporary(const fs::path& name) {
    while (true) {
        FileDescriptor file(
            ::open(name.c_str(), O_WRONLY | O_CREAT | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC, S_IRUSR | S_IWUSR));
        if (!file.valid()) {
            return file;
        }
        const bool locked = ::flock(file.number(), LOCK_EX) == 0;
        const bool fileSystemHasNoLocks = !locked && errno != EINTR;
        if (fileSystemHasNoLocks || (locked && isStillNamed(file, name))) {
            return file;
        }
    }
}

bool writeAll(const FileDescriptor& file, std::string_view content) {
    while (!content.empty()) {
        const auto written = ::write(file.number(), content.data(), content.size());
        if (written < 0 && errno != EINTR) {
            return false;
        }
        content.remove_prefix(written > 0 ? static_cast<std::size_t>(written) : 0);
    }
    return true;
}

bool fill(const FileDescriptor& file, std::string_view content) {
    // A file left behind by a crash may be longer, and may have other permissions.
    return ::ftruncate(file.number(), 0) == 0 && ::fchmod(file.number(), S_IRUSR | S_IWUSR) == 0 &&
           writeAll(file, content) && ::fsync(file.number()) == 0;
}

/// Makes the rename itself last. Not every file system can.
bool flushFolder(const fs::path& folder) {
    const FileDescriptor opened(::open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    return opened.valid() && (::fsync(opened.number()) == 0 || errno == EINVAL);
}

std::optional<FileFailure> replaceTarget(const fs::path& target, std::string_view content) {
    const auto temporary = target.parent_path() / fmt::format(".{}.new", target.filename().string());
    const auto file = openTemporary(temporary);
    if (!file.valid()) {
        return lastFailure();
    }
    if (!fill(file, content) || ::rename(temporary.c_str(), target.c_str()) != 0) {
        const auto failed = lastFailure();
        ::unlink(temporary.c_str());
        return failed;
    }
    return flushFolder(target.parent_path()) ? std::nullopt : std::optional(lastFailure());
}

} // namespace

std::optional<FileFailure> replaceFile(const std::filesystem::path& path, std::string_view content) {
    auto followed = followLinks(path);
    if (auto* const failed = std::get_if<FileFailure>(&followed)) {
        return std::move(*failed);
    }
    const auto& target = std::get<fs::path>(followed);
    if (auto failed = objection(target)) {
        return failed;
    }
    return replaceTarget(target, content);
}

} // namespace ambrel
