#include "Platform/Linux/LinuxBundle.h"

#include "Core/Files.h"
#include "Platform/Linux/ProcFiles.h"

#include <nlohmann/json.hpp>

#include <unistd.h>

namespace ambrel {

namespace {

constexpr std::size_t infoLimit = std::size_t{64} * 1024;

std::optional<std::string> textMember(const nlohmann::json& object, const char* name) {
    const auto found = object.find(name);
    return found != object.end() && found->is_string() ? std::optional(found->get<std::string>()) : std::nullopt;
}

nlohmann::json readInfo(const std::filesystem::path& path) {
    const auto content = readFile(path, infoLimit);
    const auto* const text = std::get_if<std::string>(&content);
    return text != nullptr ? nlohmann::json::parse(*text, nullptr, false) : nlohmann::json();
}

} // namespace

LinuxBundle::LinuxBundle(const std::filesystem::path& executable) : url_(executable.parent_path()) {
    for (auto folder = url_; folder.has_relative_path(); folder = folder.parent_path()) {
        if (folder.extension() == ".app" && adopt(folder)) {
            return;
        }
    }
}

LinuxBundle LinuxBundle::ofThisProcess() {
    return LinuxBundle(executableOf(getpid()).value_or("/"));
}

bool LinuxBundle::adopt(const std::filesystem::path& folder) {
    const auto info = readInfo(folder / "Info.json");
    identifier_ = info.is_object() ? textMember(info, "identifier") : std::nullopt;
    if (!identifier_) {
        return false;
    }
    version_ = textMember(info, "version");
    url_ = folder;
    return true;
}

} // namespace ambrel
