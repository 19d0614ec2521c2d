#pragma once

#include <filesystem>
#include <string>

namespace ambrel {

/// Starts or activates the application of a desktop entry file, without waiting for it. A failure is logged.
void launchEntry(const std::filesystem::path& entry);
/// Opens a link with the application that the user has for its scheme, without waiting for it. A failure is logged.
void openUri(const std::string& uri);
/// The user has an application for the scheme of this link.
[[nodiscard]] bool hasHandler(const std::string& uri);
/// The address of a file or folder, whatever characters its absolute path holds.
[[nodiscard]] std::string uriOf(const std::filesystem::path& file);

} // namespace ambrel
