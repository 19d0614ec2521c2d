#include "Core/Clock.h"
#include "Platform/Linux/Defaults/JsonUserDefaults.h"
#include "Support/LoggedTest.h"
#include "Support/TemporaryFolder.h"
#include "Support/TextFile.h"

#include <cmath>

namespace ambrel {
namespace {

namespace fs = std::filesystem;

constexpr auto product = "app.ambrel.Ambrel";
constexpr auto productName = "app.ambrel.Ambrel.json";
constexpr auto corruptName = "app.ambrel.Ambrel.json.corrupt-1800000000";

class JsonUserDefaultsTest : public LoggedTest {
protected:
    /// The defaults as the next run of the program finds them.
    JsonUserDefaults start() { return {folder, clock}; }
    DefaultsSuiteRef suite() { return start().suite(product); }

    TemporaryFolder home;
    fs::path folder = home.path() / "config/Ambrel";
    fs::path file = folder / productName;
    fs::path preserved = folder / corruptName;
    FakeClock clock{Date(Seconds(1'800'000'000.9))};
};

TEST_F(JsonUserDefaultsTest, ValuesLastFromRunToRun) {
    const std::pair<const char*, DefaultsValue> values[] = {
        {"flag", false},
        {"delay", 0.1},
        {"name", std::string("caf\u00e9 \"x\"\n")},
        {"list", std::vector<std::string>{"b", "", "a"}},
        {"none", std::vector<std::string>()},
    };
    const auto first = suite();
    EXPECT_FALSE(fs::exists(folder)) << "nothing was set yet";
    for (const auto& [key, value] : values) {
        first->set(key, value);
    }
    const auto second = suite();
    for (const auto& [key, value] : values) {
        EXPECT_EQ(second->object(key), value) << key;
    }
    EXPECT_EQ(fs::status(folder).permissions(), fs::perms::owner_all);
}

TEST_F(JsonUserDefaultsTest, EachSuiteHasItsFile) {
    auto defaults = start();
    const auto one = defaults.suite(product);
    one->set("key", 1.0);
    EXPECT_EQ(defaults.suite(product)->doubleForKey("key"), 1) << "handles share what they hold";
    defaults.standard()->set("key", 2.0);
    EXPECT_EQ(textOf(file), "{\n  \"key\": 1.0\n}\n");
    EXPECT_EQ(textOf(folder / "ambrel.json"), "{\n  \"key\": 2.0\n}\n");
    for (const auto& bad : {std::string(), std::string("../out"), std::string("a\0b", 3)}) {
        EXPECT_EQ(defaults.suite(bad), nullptr) << bad;
    }
}

TEST_F(JsonUserDefaultsTest, WhatItDoesNotKnowStaysInPlace) {
    writeText(file, R"({"z":{"deep":[1,{"x":null}]},"big":9007199254740993,"mixed":["a",1],"flag":true,"a":null})");
    const auto defaults = suite();
    defaults->registerDefaults({{"mixed", std::vector<std::string>{"registered"}}});
    for (const auto* other : {"z", "a"}) {
        EXPECT_EQ(defaults->object(other), std::nullopt) << other;
        EXPECT_FALSE(defaults->boolForKey(other));
    }
    EXPECT_EQ(defaults->stringArrayForKey("mixed"), std::vector<std::string>{"registered"});
    defaults->set("flag", false);
    auto text = textOf(file);
    std::erase_if(text, [](char character) { return character == ' ' || character == '\n'; });
    EXPECT_EQ(text, R"({"z":{"deep":[1,{"x":null}]},"big":9007199254740993,"mixed":["a",1],"flag":false,"a":null})");
}

TEST_F(JsonUserDefaultsTest, EditsByHandSurviveOurWrites) {
    const auto defaults = suite();
    defaults->set("ours", true);
    writeText(file, R"({"ours":true,"theirs":7})");
    defaults->set("ours", false);
    EXPECT_EQ(defaults->doubleForKey("theirs"), 7);
    EXPECT_EQ(suite()->doubleForKey("theirs"), 7);
    EXPECT_FALSE(suite()->boolForKey("ours"));

    fs::remove(file);
    defaults->set("more", true);
    EXPECT_EQ(suite()->doubleForKey("theirs"), 7) << "a file that vanished is written again";
}

TEST_F(JsonUserDefaultsTest, ABrokenFileIsMovedAside) {
    std::string many = "{\"k\":0";
    for (int key = 0; key < 200'000; ++key) {
        many += ",\"k" + std::to_string(key) + "\":0";
    }
    const std::string cases[] = {
        "",
        "{\"key\":",
        "[]",
        "null",
        "{\"key\":\"\xE9\"}",
        "{} {}",
        "{\"key\":1e999}",
        std::string(100'000, '['),
        R"({"key":)" + std::string(100'000, '[') + std::string(100'000, ']') + "}",
        many + "}",
        std::string((std::size_t{16} << 20U) + 1, ' '),
    };
    for (const auto& bad : cases) {
        log.expectError("app.ambrel.Ambrel.json failed to decode — preserved as "
                        "app.ambrel.Ambrel.json.corrupt-1800000000; going on without it");
        writeText(file, bad);
        const auto defaults = suite();
        ASSERT_NE(defaults, nullptr);
        EXPECT_FALSE(fs::exists(file));
        EXPECT_EQ(textOf(preserved), bad);
        defaults->set("key", true);
        EXPECT_TRUE(suite()->boolForKey("key"));
        fs::remove(preserved);
        fs::remove(file);
    }
}

TEST_F(JsonUserDefaultsTest, BrokenDuringTheRunItIsMovedAsideToo) {
    const auto defaults = suite();
    defaults->set("kept", true);
    writeText(file, "{\"kept\":");
    log.expectError("failed to decode — preserved as");
    defaults->set("more", true);
    EXPECT_EQ(textOf(preserved), "{\"kept\":");
    EXPECT_TRUE(suite()->boolForKey("kept"));

    writeText(file, "broken again in the same second");
    log.expectError("could not be moved aside (File exists)");
    defaults->set("more", false);
    defaults->set("kept", false);
    EXPECT_EQ(textOf(file), "broken again in the same second");
    EXPECT_FALSE(defaults->boolForKey("kept")) << "in memory";
}

TEST_F(JsonUserDefaultsTest, ASuiteThatCanNotBeMovedAsideDoesNotOpen) {
    fs::create_directories(file / "a folder in its place");
    writeText(preserved, "from before");
    log.expectError("app.ambrel.Ambrel.json failed to decode AND could not be moved aside (File exists) — suppressing "
                    "saves to avoid overwriting it");
    auto defaults = start();
    EXPECT_EQ(defaults.suite(product), nullptr);
    EXPECT_EQ(defaults.suite(product), nullptr);
    EXPECT_EQ(log.count("could not be moved aside"), 1U) << "said once";
    defaults.productSuite()->set("key", true);
    EXPECT_TRUE(start().standard()->boolForKey("key"));
    EXPECT_TRUE(fs::is_directory(file));
}

TEST_F(JsonUserDefaultsTest, AFailedWriteKeepsTheValueForTheNextOne) {
    const auto defaults = suite();
    writeText(folder, "in the folder's place");
    log.expectError("app.ambrel.Ambrel.json save failed: Not a directory");
    defaults->set("one", true);
    EXPECT_TRUE(defaults->boolForKey("one"));
    fs::remove(folder);
    defaults->set("two", true);
    EXPECT_TRUE(suite()->boolForKey("one"));
}

TEST_F(JsonUserDefaultsTest, ValuesThatJsonCanNotHoldDoNotBreakTheFile) {
    const auto defaults = suite();
    defaults->set("delay", std::nan(""));
    defaults->set("name", std::string("caf\xE9"));
    defaults->set("kept", true);
    const auto next = suite();
    EXPECT_TRUE(next->boolForKey("kept"));
    EXPECT_EQ(next->object("delay"), std::nullopt);
    EXPECT_EQ(next->object("name"), DefaultsValue(std::string("caf\uFFFD")));
}

} // namespace
} // namespace ambrel
