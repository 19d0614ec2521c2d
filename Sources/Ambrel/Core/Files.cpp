#include "Core/Files.h"

#include "Core/FileDescriptor.h"
#include "Core/FileFailures.h"

#include <cerrno>
#include <cstdio>

#include <fcntl.h>
#include <sys/stat.h>

namespace ambrel {

namespace {

struct RegularFile {
    FileDescriptor descriptor;
    std::size_t size;
};

std::variant<RegularFile, FileFailure> openForReading(const std::filesystem::path& path) {
    FileDescriptor descriptor(::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
    struct stat status {};
    if (!descriptor.valid() || ::fstat(descriptor.number(), &status) != 0) {
        return lastFailure();
    }
    if (!S_ISREG(status.st_mode)) {
        return failure(S_ISDIR(status.st_mode) ? EISDIR : EINVAL);
    }
    return RegularFile{std::move(descriptor), static_cast<std::size_t>(status.st_size)};
}

/// At most `limit` bytes from `offset` on.
std::variant<std::string, FileFailure> readBytes(const FileDescriptor& file, std::size_t offset, std::size_t limit) {
    std::string content(limit, '\0');
    std::size_t count = 0;
    while (count < limit) {
        const auto got =
            ::pread(file.number(), content.data() + count, limit - count, static_cast<off_t>(offset + count));
        if (got < 0 && errno != EINTR) {
            return lastFailure();
        }
        if (got == 0) {
            break;
        }
        count += got > 0 ? static_cast<std::size_t>(got) : 0;
    }
    content.resize(count);
    return content;
}

} // namespace

std::variant<std::string, FileFailure> readFile(const std::filesystem::path& path, std::size_t limit) {
    auto opened = openForReading(path);
    if (auto* const failed = std::get_if<FileFailure>(&opened)) {
        return std::move(*failed);
    }
    const auto& file = std::get<RegularFile>(opened);
    if (file.size > limit) {
        return failure(EFBIG);
    }
    // One byte more tells a file that has grown since from one that ends here.
    auto content = readBytes(file.descriptor, 0, file.size + 1);
    const auto* const text = std::get_if<std::string>(&content);
    return text != nullptr && text->size() > file.size ? readFile(path, limit) : std::move(content);
}

std::variant<std::string, FileFailure> readFileTail(const std::filesystem::path& path, std::size_t limit) {
    auto opened = openForReading(path);
    if (auto* const failed = std::get_if<FileFailure>(&opened)) {
        return std::move(*failed);
    }
    const auto& file = std::get<RegularFile>(opened);
    return readBytes(file.descriptor, file.size > limit ? file.size - limit : 0, limit);
}

std::optional<FileFailure> moveFile(const std::filesystem::path& from, const std::filesystem::path& to) {
    if (::renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) != 0) {
        return lastFailure();
    }
    return std::nullopt;
}

std::optional<FileFailure> createFolder(const std::filesystem::path& path) {
    if (::mkdir(path.c_str(), 0700) == 0) {
        return std::nullopt;
    }
    const int code = errno;
    std::error_code ignored;
    if (code == EEXIST && std::filesystem::is_directory(path, ignored)) {
        return std::nullopt;
    }
    const auto parent = path.parent_path();
    if (code != ENOENT || parent.empty() || parent == path) {
        return failure(code);
    }
    if (auto failed = createFolder(parent)) {
        return failed;
    }
    return ::mkdir(path.c_str(), 0700) == 0 || errno == EEXIST ? std::nullopt : std::optional(lastFailure());
}

} // namespace ambrel
