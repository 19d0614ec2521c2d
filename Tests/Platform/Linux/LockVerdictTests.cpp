#include "Platform/Linux/LockVerdict.h"

#include <optional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace ambrel {
namespace {

TEST(LockVerdict, DoubtKeepsTheScreenLocked) {
    struct Case {
        const char* name;
        std::vector<std::string> events; ///< a service, and what it says: + locked, - unlocked, x it dies
        std::optional<bool> expected;
    };
    const Case cases[] = {
        {"nobody has spoken", {}, {}},
        {"a death tells nothing", {"saver x"}, {}},
        {"one that sees the lock outvotes the others", {"login -", "saver +", "third -"}, true},
        {"each takes back its own word", {"login +", "saver +", "saver -"}, true},
        {"both took theirs back", {"login +", "saver +", "saver -", "login -"}, false},
        {"a death unlocks nothing", {"login -", "saver +", "saver x", "saver x"}, true},
        {"it comes back", {"saver +", "saver x", "saver -"}, false},
        {"a living one knows better", {"login -", "saver +", "saver x", "login -"}, false},
        {"a living one still says locked", {"login +", "saver +", "saver x", "login +"}, true},
        {"the lock of the dead doesn't come back", {"saver +", "saver x", "login -", "login x"}, {}},
    };
    for (const auto& [name, events, expected] : cases) {
        LockVerdict verdict;
        for (const auto& event : events) {
            const auto service = event.substr(0, event.find(' '));
            if (event.back() == 'x') {
                static_cast<void>(verdict.dies(service));
            } else {
                verdict.says(service, event.back() == '+');
            }
        }
        EXPECT_EQ(verdict.isLocked(), expected) << name;
    }
}

} // namespace
} // namespace ambrel
