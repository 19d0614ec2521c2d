#include "AmbrelKit/WorkPolicy.h"

#include <gtest/gtest.h>

namespace ambrel {

namespace {

using Sign = WorkPolicy::Sign;

TEST(WorkPolicyTests, SignsOfWorkBeginAtTheirLimits) {
    const double passed = 0.5;
    const WorkPolicy::Look before{.processorSeconds = 8, .charactersWritten = 1'000'000, .bytesWritten = 1'000'000};
    const auto characters = static_cast<std::uint64_t>(WorkPolicy::characterLimit * passed);
    const auto bytes = static_cast<std::uint64_t>(WorkPolicy::byteLimit * passed);
    const auto after = [&](double processor, std::uint64_t moreCharacters, std::uint64_t moreBytes) {
        return WorkPolicy::Look{.processorSeconds = 8 + processor,
                                .charactersWritten = 1'000'000 + moreCharacters,
                                .bytesWritten = 1'000'000 + moreBytes};
    };
    const double processor = WorkPolicy::processorLimit * passed;
    const struct {
        const char* what;
        WorkPolicy::Look now;
        std::optional<Sign> sign;
    } cases[] = {
        {"at rest", before, std::nullopt},
        {"below every limit", after(processor - 0.001, characters - 1, bytes - 1), std::nullopt},
        {"processor", after(processor, 0, 0), Sign::processor},
        {"characters", after(0, characters, 0), Sign::writing},
        {"bytes", after(0, 0, bytes), Sign::writing},
        {"counters unreadable", {.processorSeconds = 8}, std::nullopt},
        {"counters unreadable, processor", {.processorSeconds = 8 + processor}, Sign::processor},
        {"a descendant ended", {.processorSeconds = 7.9, .charactersWritten = {}, .bytesWritten = {}}, Sign::processor},
        {"a writing descendant ended", {.processorSeconds = 8, .charactersWritten = 999'999}, Sign::writing},
        {"disk", {.processorSeconds = 8, .waitsForDisk = true}, Sign::disk},
    };
    for (const auto& [what, now, sign] : cases) {
        EXPECT_EQ(WorkPolicy::signOfWork(before, now, passed), sign) << what;
    }
    EXPECT_EQ(WorkPolicy::signOfWork({.processorSeconds = 8}, after(0, characters, bytes), passed), std::nullopt);
    EXPECT_EQ(WorkPolicy::signOfWork(before, after(processor, characters, bytes), 2 * passed), std::nullopt);
}

} // namespace

} // namespace ambrel
