#include "State/AppRuleCoding.h"

#include <gtest/gtest.h>

namespace ambrel {
namespace {

constexpr std::string_view idText = "0123ABCD-4567-89EF-ABCD-0123456789AB";

/// A file with one rule of the given members.
std::optional<AppRule> decodeRule(const std::string& members) {
    const auto persisted = decodePersisted(R"({"defaultRule":{"bundleIdentifier":""},"rules":[{)" + members + "}]}");
    return persisted ? std::optional(persisted->rules.at(0)) : std::nullopt;
}

AppRule unusualRule() {
    AppRule rule("org.example.App", "caf\u00e9 \"x\"\n");
    rule.id = *Uuid::parse(idText);
    rule.quitOnLastWindowClose = false;
    rule.idleBehavior = AppRule::IdleBehavior::hide;
    rule.idleThresholdMinutes = -9'007'199'254'740'993;
    rule.includedInQuitAll = false;
    rule.systemDefault = true;
    rule.quitWhenHidden = true;
    return rule;
}

TEST(AppRuleCodingTest, WritesAllMembersInOrderWithoutSpaces) {
    auto defaultRule = AppRule::initialDefaultRule();
    defaultRule.id = *Uuid::parse(idText);
    EXPECT_EQ(encode({{unusualRule()}, defaultRule}),
              R"({"rules":[{"id":"0123ABCD-4567-89EF-ABCD-0123456789AB","bundleIdentifier":"org.example.App",)"
              "\"displayName\":\"caf\u00e9 \\\"x\\\"\\n\","
              R"("quitOnLastWindowClose":false,"idleBehavior":"hide","idleThresholdMinutes":-9007199254740993,)"
              R"("includedInQuitAll":false,"systemDefault":true,"quitWhenHidden":true}],)"
              R"("defaultRule":{"id":"0123ABCD-4567-89EF-ABCD-0123456789AB","bundleIdentifier":"",)"
              R"("displayName":"Default rule","quitOnLastWindowClose":true,"idleBehavior":"none",)"
              R"("idleThresholdMinutes":30,"includedInQuitAll":true,"systemDefault":false,"quitWhenHidden":false}})");
}

TEST(AppRuleCodingTest, ABundleIdentifierIsEnough) {
    const auto rule = decodeRule(R"("bundleIdentifier":"org.example.App")");
    ASSERT_TRUE(rule);
    AppRule expected("org.example.App");
    EXPECT_NE(rule->id, expected.id);
    expected.id = rule->id;
    EXPECT_EQ(*rule, expected);
}

TEST(AppRuleCodingTest, OneBadMemberCostsNoOther) {
    const auto expected = unusualRule();
    const auto good = encode({{expected}, AppRule("")});
    auto name = expected, quit = expected, idle = expected, minutes = expected, all = expected, system = expected,
         hidden = expected;
    name.displayName = expected.bundleIdentifier();
    quit.quitOnLastWindowClose = true;
    idle.idleBehavior = AppRule::IdleBehavior::none;
    minutes.idleThresholdMinutes = 30;
    all.includedInQuitAll = true;
    system.systemDefault = false;
    hidden.quitWhenHidden = false;
    const std::pair<std::string, AppRule> cases[] = {
        {R"("displayName":7)", name},
        {R"("quitOnLastWindowClose":0)", quit},
        {R"("idleBehavior":"Quit")", idle},
        {R"("idleThresholdMinutes":"45")", minutes},
        {R"("includedInQuitAll":"false")", all},
        {R"("systemDefault":null)", system},
        {R"("quitWhenHidden":[true])", hidden},
    };
    for (const auto& [bad, rule] : cases) {
        const auto key = bad.substr(0, bad.find(':'));
        const auto begin = good.find(key);
        auto text = good;
        text.replace(begin, good.find_first_of(",}", begin) - begin, bad);
        const auto persisted = decodePersisted(text);
        ASSERT_TRUE(persisted) << text;
        EXPECT_EQ(persisted->rules, std::vector{rule}) << bad;
    }
    for (const auto* bad : {R"("not an id")", "7", "null"}) {
        const auto rule = decodeRule(R"("bundleIdentifier":"a","quitWhenHidden":true,"id":)" + std::string(bad));
        ASSERT_TRUE(rule) << bad;
        EXPECT_TRUE(rule->quitWhenHidden);
    }
}

TEST(AppRuleCodingTest, ThresholdsAreWholeNumbersHoweverWritten) {
    const std::pair<const char*, std::int64_t> cases[] = {
        {"45", 45},
        {"45.0", 45},
        {"4.5e1", 45},
        {"-1", -1},
        {"9223372036854775807", 9'223'372'036'854'775'807},
        {"45.5", 30},
        {"9223372036854775808", 30},
        {"9.3e18", 30},
        {"-1e300", 30},
        {"true", 30},
    };
    for (const auto& [text, minutes] : cases) {
        const auto rule = decodeRule(R"("bundleIdentifier":"a","idleThresholdMinutes":)" + std::string(text));
        ASSERT_TRUE(rule) << text;
        EXPECT_EQ(rule->idleThresholdMinutes, minutes) << text;
    }
}

TEST(AppRuleCodingTest, WithoutItsRequiredMembersNothingIsRead) {
    for (const auto* bad :
         {"", "{", "null", "[]", "{}", R"({"rules":[]})", R"({"defaultRule":{"bundleIdentifier":""}})",
          R"({"rules":{},"defaultRule":{"bundleIdentifier":""}})", R"({"rules":[],"defaultRule":{}})",
          R"({"rules":[],"defaultRule":null})", R"({"rules":[{}],"defaultRule":{"bundleIdentifier":""}})",
          R"({"rules":[7],"defaultRule":{"bundleIdentifier":""}})",
          R"({"rules":[{"bundleIdentifier":7}],"defaultRule":{"bundleIdentifier":""}})",
          R"({"rules":[],"defaultRule":{"bundleIdentifier":""}} more)",
          "{\"rules\":[],\"defaultRule\":{\"bundleIdentifier\":\"\xE9\"}}",
          R"({"rules":[],"defaultRule":{"bundleIdentifier":"\ud800"}})"}) {
        EXPECT_FALSE(decodePersisted(bad)) << bad;
    }
    EXPECT_FALSE(decodePersisted(std::string(100'000, '[')));
}

TEST(AppRuleCodingTest, ToleratesWhatItDoesNotKnow) {
    const auto nested = std::string(100'000, '[') + std::string(100'000, ']');
    const auto rule = decodeRule(R"("later":)" + nested + R"(,"bundleIdentifier":"first","bundleIdentifier":"last")");
    ASSERT_TRUE(rule);
    EXPECT_EQ(rule->bundleIdentifier(), "last");
}

TEST(AppRuleCodingTest, ANameThatIsNotUtf8StillMakesAReadableFile) {
    const auto persisted = decodePersisted(encode({{AppRule("a", "caf\xE9")}, AppRule("")}));
    ASSERT_TRUE(persisted);
    EXPECT_EQ(persisted->rules.at(0).displayName, "caf\uFFFD");
}

} // namespace
} // namespace ambrel
