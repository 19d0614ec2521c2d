#include "Platform/Linux/LockVerdict.h"

#include <optional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace ambrel {
namespace {

enum class Word { locked, unlocked, dies };

TEST(LockVerdict, DoubtKeepsTheScreenLocked) {
    struct Event {
        const char* service;
        Word word;
    };
    struct Case {
        const char* name;
        std::vector<Event> events;
        std::optional<bool> expected;
    };
    using enum Word;
    const Case cases[] = {
        {"nobody has spoken", {}, {}},
        {"a death tells nothing", {{"saver", dies}}, {}},
        {"one word", {{"login", unlocked}}, false},
        {"one that sees the lock outvotes the others",
         {{"login", unlocked}, {"saver", locked}, {"third", unlocked}},
         true},
        {"each takes back its own word", {{"login", locked}, {"saver", locked}, {"saver", unlocked}}, true},
        {"both took theirs back",
         {{"login", locked}, {"saver", locked}, {"saver", unlocked}, {"login", unlocked}},
         false},
        {"a death unlocks nothing", {{"login", unlocked}, {"saver", locked}, {"saver", dies}}, true},
        {"repeated deaths", {{"saver", locked}, {"saver", dies}, {"saver", dies}}, true},
        {"it comes back", {{"saver", locked}, {"saver", dies}, {"saver", unlocked}}, false},
        {"it comes back locked", {{"saver", locked}, {"saver", dies}, {"saver", locked}}, true},
        {"a living one knows better",
         {{"login", unlocked}, {"saver", locked}, {"saver", dies}, {"login", unlocked}},
         false},
        {"a living one still says locked",
         {{"login", locked}, {"saver", locked}, {"saver", dies}, {"login", locked}},
         true},
        {"the dead one's lock ends with the last of the living",
         {{"login", locked}, {"saver", locked}, {"saver", dies}, {"login", unlocked}},
         false},
        {"the lock of the dead doesn't come back",
         {{"saver", locked}, {"saver", dies}, {"login", unlocked}, {"login", dies}},
         {}},
    };
    for (const auto& [name, events, expected] : cases) {
        LockVerdict verdict;
        for (const auto& [service, word] : events) {
            if (word == dies) {
                static_cast<void>(verdict.dies(service));
            } else {
                verdict.says(service, word == locked);
            }
        }
        EXPECT_EQ(verdict.isLocked(), expected) << name;
    }
}

TEST(LockVerdict, OnlyTheDeathOfOneThatSaidLockedCallsForQuestions) {
    LockVerdict verdict;
    verdict.says("login", false);
    EXPECT_FALSE(verdict.dies("login"));
    verdict.says("saver", true);
    EXPECT_TRUE(verdict.dies("saver"));
    EXPECT_FALSE(verdict.dies("saver"));
}

} // namespace
} // namespace ambrel
