#include "Core/Logger.h"
#include "Support/RecordingLog.h"

#include <gtest/gtest.h>

namespace ambrel {
namespace {

const Logger logger("engine");

TEST(Logger, WritesTheWordsOfTheProduct) {
    RecordingLog log;
    logger.notice("in {:f}s, {} of {}", 0.5, true, "a{}b");
    logger.fault("{}", std::string("{not a format"));
    const auto lines = log.lines();
    ASSERT_EQ(lines.size(), 2U);
    EXPECT_EQ(lines[0].text, "in 0.500000s, true of a{}b");
    EXPECT_EQ(lines[0].category, "engine");
    EXPECT_EQ(lines[1].text, "{not a format");
    EXPECT_EQ(lines[1].level, LogLevel::fault);
}

TEST(Logger, DoesNotFormatWhatTheSinkDoesNotWant) {
    class OnlyErrors final : public LogSink {
    public:
        void write(std::string_view, LogLevel, std::string_view message) override { text += message; }
        [[nodiscard]] bool wants(LogLevel level) const override { return level >= LogLevel::error; }
        std::string text;
    } sink;
    LogSink::install(&sink);
    logger.debug("d");
    logger.notice("n");
    logger.error("e");
    logger.fault("f");
    LogSink::install(nullptr);
    EXPECT_EQ(sink.text, "ef");
}

TEST(RecordingLog, ComplainsOfWhatCameUnannouncedAndOfWhatNeverCame) {
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
