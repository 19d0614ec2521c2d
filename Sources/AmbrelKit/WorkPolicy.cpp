#include "AmbrelKit/WorkPolicy.h"

namespace ambrel {

namespace {

using Counter = std::optional<std::uint64_t>;

/// Counters of descendants that have ended are missing.
bool changedBy(double limit, Counter before, Counter now) {
    return before && now && (*now < *before || static_cast<double>(*now - *before) >= limit);
}

} // namespace

std::optional<WorkPolicy::Sign> WorkPolicy::signOfWork(const Look& before, const Look& now, double passed) {
    if (now.waitsForDisk) {
        return Sign::disk;
    }
    if (changedBy(byteLimit * passed, before.bytesWritten, now.bytesWritten) ||
        changedBy(characterLimit * passed, before.charactersWritten, now.charactersWritten)) {
        return Sign::writing;
    }
    const double processor = now.processorSeconds - before.processorSeconds;
    if (processor < 0 || processor >= processorLimit * passed) {
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
