#pragma once

#include "Capture/Picture.h"
#include "Platform/Appearance.h"

namespace ambrel {

/// One picture to draw.
struct Job {
    std::string name; ///< of its file, without extension
    Picture picture;
    ColorScheme appearance;
};

} // namespace ambrel
