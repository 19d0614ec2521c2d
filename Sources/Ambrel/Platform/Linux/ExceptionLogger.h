#pragma once

namespace ambrel {

/// From now on an exception that nobody catches is logged before it ends the process as it would have.
void installExceptionLogger();

} // namespace ambrel
