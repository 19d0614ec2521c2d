#include "AmbrelKit/WorkPolicy.h"

namespace ambrel {

namespace {

using Counter = std::optional<std::uint64_t>;

bool grewBy(double limit, Counter before, Counter now) {
    return before && now && *now > *before && static_cast<double>(*now - *before) >= limit;
}

} // namespace

std::optional<WorkPolicy::Sign> WorkPolicy::signOfWork(const Look& before, const Look& now, double passed) {
    if (now.waitsForDisk) {
        return Sign::disk;
    }
    if (grewBy(byteLimit * passed, before.bytesWritten, now.bytesWritten) ||
        grewBy(characterLimit * passed, before.charactersWritten, now.charactersWritten)) {
        return Sign::writing;
    }
    if (now.processorSeconds - before.processorSeconds >= processorLimit * passed) {
        return Sign::processor;
    }
    return std::nullopt;
}

const char* word(WorkPolicy::Sign sign) {
    switch (sign) {
    case WorkPolicy::Sign::processor:
        return "processor";
    case WorkPolicy::Sign::writing:
        return "writing";
    case WorkPolicy::Sign::disk:
        return "disk";
    }
    return "?";
}

} // namespace ambrel
