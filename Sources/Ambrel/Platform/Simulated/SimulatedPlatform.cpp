#include "Platform/Simulated/SimulatedPlatform.h"

namespace ambrel::simulated {

SimulatedPlatform::SimulatedPlatform(const std::filesystem::path& home)
    : workspace_(queue_, home), windowList_(workspace_), windowServer_(workspace_), bundle_(home / "Ambrel.app"),
      fileLocations_(home), application_(queue_), backgroundQueue_(queue_), notificationCenter_(queue_) {}

} // namespace ambrel::simulated
