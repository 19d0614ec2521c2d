#pragma once

namespace ambrel {

/// From now on an exception that nobody catches leaves a line in the log before the process ends as it would have.
void installExceptionLogger();

} // namespace ambrel
