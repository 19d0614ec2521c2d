#include "Core/Logger.h"
#include "Support/RecordingLog.h"

#include <gtest/gtest.h>

namespace ambrel {
namespace {

TEST(RecordingLog, ComplainsOfWhatCameUnannouncedAndOfWhatNeverCame) {
    const Logger logger("engine");
    RecordingLog log;
    log.expectError("announced");
    log.expectError("never");
    logger.error("this was announced");
    logger.notice("never an error");
    logger.error("surprise");
    log.clear();
    EXPECT_EQ(log.complaints(),
              (std::vector<std::string>{"unexpected line in \"engine\": surprise", "no error line said: never"}));
}

} // namespace
} // namespace ambrel
