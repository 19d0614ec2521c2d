#include "Platform/Linux/Defaults/JsonDefaultsSuite.h"

#include "Core/Clock.h"
#include "Core/Files.h"
#include "Core/Logger.h"

#include <cerrno>
#include <utility>

#include <sys/stat.h>

namespace ambrel {

namespace {

constexpr Logger settingsLog("settings");
constexpr std::size_t largestReadableFile = std::size_t{16} << 20U;

} // namespace

JsonDefaultsSuite::JsonDefaultsSuite(std::filesystem::path file, const Clock& clock)
    : file_(std::move(file)), clock_(clock) {
    read();
    couldBeOpened_ = !keepsToMemory_;
}

std::optional<DefaultsValue> JsonDefaultsSuite::object(const std::string& key) const {
    auto stored = document_.value(key);
    return stored ? stored : registered(key);
}

void JsonDefaultsSuite::set(const std::string& key, DefaultsValue value) {
    if (!keepsToMemory_ && currentStamp() != stamp_) {
        read();
    }
    document_.set(key, value);
    if (!keepsToMemory_) {
        save();
    }
}

void JsonDefaultsSuite::registerDefaults(const std::map<std::string, DefaultsValue>& values) {
    for (const auto& [key, value] : values) {
        registered_.insert_or_assign(key, value);
    }
}

template <typename Type> Type JsonDefaultsSuite::typed(const std::string& key) const {
    for (const auto& value : {document_.value(key), registered(key)}) {
        if (value && std::holds_alternative<Type>(*value)) {
            return std::get<Type>(*value);
        }
    }
    return {};
}

std::optional<DefaultsValue> JsonDefaultsSuite::registered(const std::string& key) const {
    const auto found = registered_.find(key);
    return found == registered_.end() ? std::nullopt : std::optional(found->second);
}

std::optional<JsonDefaultsSuite::Stamp> JsonDefaultsSuite::currentStamp() const {
    struct stat status {};
    if (::stat(file_.c_str(), &status) != 0) {
        return std::nullopt;
    }
    return Stamp{status.st_ino, status.st_mtim.tv_sec, status.st_mtim.tv_nsec, status.st_size};
}

void JsonDefaultsSuite::read() {
    // Taken first, so that an edit during the reading shows at the next change.
    stamp_ = currentStamp();
    const auto content = readFile(file_, largestReadableFile);
    if (const auto* const failed = std::get_if<FileFailure>(&content)) {
        const bool missing = failed->code == ENOENT || failed->code == ENOTDIR;
        if (!missing) {
            moveAside();
        }
        return;
    }
    if (auto document = DefaultsDocument::parse(std::get<std::string>(content))) {
        document_ = *std::move(document);
    } else {
        moveAside();
    }
}

void JsonDefaultsSuite::moveAside() {
    const auto name = file_.filename().string();
    auto preserved = file_;
    preserved += ".corrupt-" + std::to_string(wholeSeconds(clock_.now()));
    const auto failed = moveFile(file_, preserved);
    keepsToMemory_ = failed.has_value();
    if (failed) {
        settingsLog.error("{} failed to decode AND could not be moved aside ({}) — suppressing saves to avoid "
                          "overwriting it",
                          name, failed->description);
    } else {
        settingsLog.error("{} failed to decode — preserved as {}; going on without it", name,
                          preserved.filename().string());
    }
}

void JsonDefaultsSuite::save() {
    // A folder that can't be made shows up in the write.
    static_cast<void>(createFolder(file_.parent_path()));
    if (const auto failed = replaceFile(file_, document_.text())) {
        settingsLog.error("{} save failed: {}", file_.filename().string(), failed->description);
        return;
    }
    stamp_ = currentStamp();
}

} // namespace ambrel
