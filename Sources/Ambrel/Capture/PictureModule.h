#pragma once

#include <filesystem>
#include <optional>

namespace ambrel {

class Environment;

/// Two ways to start that draw the program's views to files and end, with no desktop at all. What draws is in the
/// library of windows.
struct PictureModule {
    PictureModule() = delete;

    /// The status to end with; absent where the environment asks for no pictures.
    [[nodiscard]] static std::optional<int> runIfRequested(const Environment& environment,
                                                           const std::filesystem::path& library, int argc, char** argv);
};

/// The library's function for it, by the name `ambrelDrawPictures`.
using DrawPictures = int(const Environment& environment, int argc, char** argv);

} // namespace ambrel
