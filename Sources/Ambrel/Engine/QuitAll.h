#pragma once

#include "Core/Logger.h"

namespace ambrel {

/// Asks every ordinary application to quit.
class QuitAll {
public:
    [[nodiscard]] static QuitAll& shared();

    /// The number of applications found; with `force`, they are not asked but ended.
    int run(bool force);

private:
    Logger log_{"engine"};
};

} // namespace ambrel
