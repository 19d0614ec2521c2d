#pragma once

#include "Engine/TerminationAudit.h"
#include "Platform/Occupations.h"

namespace ambrel {

/// For log lines.
[[nodiscard]] const char* word(Occupation occupation);
/// How the decisions log calls a quit that was held back for it.
[[nodiscard]] TerminationAudit::Action heldBackBecause(Occupation occupation);

} // namespace ambrel
