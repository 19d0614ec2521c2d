#pragma once

#include "Support/RecordingLog.h"

#include <gtest/gtest.h>

namespace ambrel {

/// A test with a log of its own. It fails if the log holds an error that it didn't announce; what a derived fixture
/// writes while it is torn down counts too.
class LoggedTest : public ::testing::Test {
protected:
    LoggedTest() = default;
    ~LoggedTest() override {
        for (const auto& complaint : log.complaints()) {
            ADD_FAILURE() << complaint;
        }
    }

    RecordingLog log;
};

} // namespace ambrel
