#pragma once

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <string_view>

namespace ambrel {

inline void writeText(const std::filesystem::path& file, std::string_view text) {
    std::filesystem::create_directories(file.parent_path());
    std::ofstream(file, std::ios::binary) << text;
}

/// Empty too for a file that isn't there.
inline std::string textOf(const std::filesystem::path& file) {
    std::ostringstream text;
    text << std::ifstream(file, std::ios::binary).rdbuf();
    return text.str();
}

/// How many files `folder` holds whose names begin with `prefix`.
inline std::ptrdiff_t countFiles(const std::filesystem::path& folder, std::string_view prefix) {
    return std::count_if(std::filesystem::directory_iterator(folder), {},
                         [prefix](const auto& entry) { return entry.path().filename().string().starts_with(prefix); });
}

} // namespace ambrel
