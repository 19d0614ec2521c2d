#pragma once

#include "Platform/Simulated/SimulatedPlatform.h"
#include "Support/RecordingLog.h"
#include "Support/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace ambrel {

/// A test on a simulated desktop of its own, in a home folder of its own. It fails if the log holds an error that it
/// didn't announce; what a derived fixture writes while it is torn down counts too.
class AmbrelTest : public ::testing::Test {
protected:
    AmbrelTest() = default;
    ~AmbrelTest() override;

    TemporaryFolder home;
    RecordingLog log;
    simulated::SimulatedPlatform desktop{home.path()};
};

} // namespace ambrel
