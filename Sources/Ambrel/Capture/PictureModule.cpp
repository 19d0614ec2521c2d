#include "Capture/PictureModule.h"

#include "Core/Logger.h"
#include "Platform/Environment.h"

#include <cstdlib>

#include <dlfcn.h>

namespace ambrel {

std::optional<int> PictureModule::runIfRequested(const Environment& environment, const std::filesystem::path& library,
                                                 int argc, char** argv) {
    if (!environment.isSet("AMBREL_SNAPSHOT") && !environment.isSet("AMBREL_CAPTURE")) {
        return std::nullopt;
    }
    void* const handle = dlopen(library.c_str(), RTLD_NOW | RTLD_LOCAL);
    auto* const draw =
        handle == nullptr ? nullptr : reinterpret_cast<DrawPictures*>(dlsym(handle, "ambrelDrawPictures"));
    if (draw == nullptr) {
        Logger("ui").error("no picture can be drawn: {}", dlerror());
        return EXIT_FAILURE;
    }
    return draw(environment, argc, argv);
}

} // namespace ambrel
