#include "Engine/OccupationWords.h"

namespace ambrel {

const char* word(Occupation occupation) {
    switch (occupation) {
    case Occupation::playing:
        return "playing";
    case Occupation::inhibiting:
        return "blocking sleep or logout";
    case Occupation::unknown:
        return "perhaps playing (no answer)";
    }
    return "?";
}

TerminationAudit::Action heldBackBecause(Occupation occupation) {
    switch (occupation) {
    case Occupation::playing:
        return TerminationAudit::Action::skippedPlaying;
    case Occupation::inhibiting:
        return TerminationAudit::Action::skippedInhibiting;
    case Occupation::unknown:
        break;
    }
    return TerminationAudit::Action::skippedNoAnswer;
}

} // namespace ambrel
