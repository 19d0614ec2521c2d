#include "Capture/Capture.h"

#include "Core/Logger.h"
#include "Platform/Environment.h"

namespace ambrel {

namespace {

bool declines(const Environment& environment, const char* variable) {
    if (environment.isSet(variable)) {
        Logger("ui").notice("{}: drawing pictures is not there yet", variable);
    }
    return false;
}

} // namespace

bool Capture::runIfRequested(const Environment& environment) {
    return declines(environment, "AMBREL_CAPTURE");
}

bool Snapshots::runIfRequested(const Environment& environment) {
    return declines(environment, "AMBREL_SNAPSHOT");
}

} // namespace ambrel
