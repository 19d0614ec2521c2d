#pragma once

#include "Platform/Simulated/SimulatedPlatform.h"
#include "Support/LoggedTest.h"
#include "Support/TemporaryFolder.h"

namespace ambrel {

/// A test on a simulated desktop of its own, in a home folder of its own.
class AmbrelTest : public LoggedTest {
protected:
    TemporaryFolder home;
    simulated::SimulatedPlatform desktop{home.path()};
};

} // namespace ambrel
