#pragma once

#include <filesystem>

namespace ambrel {

/// Starts or activates the application of a desktop entry file, without waiting for it. A failure is logged.
void launchEntry(const std::filesystem::path& entry);

} // namespace ambrel
