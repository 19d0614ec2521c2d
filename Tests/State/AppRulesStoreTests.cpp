#include "State/AppRuleCoding.h"
#include "State/RulesTest.h"

namespace ambrel {
namespace {

namespace fs = std::filesystem;

using AppRulesStoreTest = RulesTest;

constexpr auto preservedLine =
    "rules.json failed to decode — preserved as rules.json.corrupt-1800000000; starting with "
    "fresh rules";

AppRule ruleOf(const std::string& identifier, const std::string& name) {
    return {identifier, name};
}

TEST_F(AppRulesStoreTest, TheDefaultRuleSuppliesFourBehavioursAndNoMore) {
    auto store = start();
    auto defaultRule = store.defaultRule();
    defaultRule.quitOnLastWindowClose = false;
    defaultRule.includedInQuitAll = false;
    defaultRule.idleThresholdMinutes = 7;
    defaultRule.systemDefault = true;
    store.setDefaultRule(defaultRule);

    const auto rule = store.rule("org.example.Unknown");
    AppRule expected("org.example.Unknown", "Default rule");
    expected.id = rule.id;
    expected.quitOnLastWindowClose = false;
    expected.includedInQuitAll = false;
    expected.idleThresholdMinutes = 7;
    EXPECT_EQ(rule, expected);
    EXPECT_NE(store.rule("org.example.Unknown").id, rule.id);
    EXPECT_EQ(store.explicitRule("org.example.Unknown"), std::nullopt);
    EXPECT_EQ(store.explicitRule("COM.APPLE.FINDER"), std::nullopt);
    EXPECT_EQ(store.rule("com.apple.finder"), store.rules().front());
}

TEST_F(AppRulesStoreTest, EditsAreAnnouncedKeptAndReadAgain) {
    auto store = start();
    std::vector<std::size_t> counts;
    const auto subscription = store.willChange.subscribe([&] { counts.push_back(store.rules().size()); });
    store.upsert(ruleOf("a", "first"));
    store.upsert(ruleOf("b", "second"));
    const auto replacement = ruleOf("a", "third");
    store.upsert(replacement);
    EXPECT_EQ(store.rules().at(8), replacement) << "in place, with the new id";
    store.remove(store.rules().at(9).id);
    store.remove(store.rules().front().id);
    store.remove(Uuid::random());
    EXPECT_EQ(counts, (std::vector<std::size_t>{8, 9, 10, 10, 9, 9})) << "each before it is made";
    EXPECT_EQ(store.rules().size(), 9U) << "rules of the system stay";

    const auto again = start();
    EXPECT_EQ(again.rules(), store.rules());
    EXPECT_EQ(again.defaultRule(), store.defaultRule());
}

TEST_F(AppRulesStoreTest, LookupsAndEditsTakeTheFirstOfTwoRules) {
    auto twice = ruleOf("a", "second");
    writeText(file, encode({{ruleOf("a", "first"), twice}, AppRule::initialDefaultRule()}));
    auto store = start();
    EXPECT_EQ(store.explicitRule("a")->displayName, "first");
    store.upsert(ruleOf("a", "new"));
    EXPECT_EQ(store.explicitRule("a")->displayName, "new");
    EXPECT_EQ(store.rules().at(1), twice);
}

TEST_F(AppRulesStoreTest, TheDefaultRuleNeverHasIdleBehaviourNorQuitsHidden) {
    auto bad = AppRule::initialDefaultRule();
    bad.idleBehavior = AppRule::IdleBehavior::quit;
    bad.quitWhenHidden = true;
    auto good = AppRule::initialDefaultRule();
    good.id = bad.id;

    writeText(file, encode({{}, bad}));
    EXPECT_EQ(start().defaultRule(), good) << "from a file";
    EXPECT_TRUE(log.contains("healed default rule: idleBehavior quit -> none (idle is per-app only)"));
    auto store = start();
    store.setDefaultRule(bad);
    EXPECT_EQ(store.defaultRule(), good);
    EXPECT_EQ(decodePersisted(textOf(file))->defaultRule, good);
}

TEST_F(AppRulesStoreTest, AnUndecodableFileIsMovedAside) {
    const std::string cases[] = {
        "",
        "{\"rules\":[",
        R"({"rules":[{}],"defaultRule":{}})",
        "\xFF\xFE",
        std::string(100'000, '['),
        std::string((std::size_t{16} << 20U) + 1, ' '),
    };
    for (const auto& bad : cases) {
        log.expectError(preservedLine);
        writeText(file, bad);
        auto store = start();
        EXPECT_EQ(textOf(preserved), bad);
        EXPECT_EQ(identifiers(store), systemDefaults);
        store.upsert(ruleOf("a", "a"));
        EXPECT_EQ(decodePersisted(textOf(file))->rules, store.rules()) << "saving goes on";
        fs::remove(preserved);
    }
}

TEST_F(AppRulesStoreTest, WhatIsNoFileIsMovedAsideToo) {
    log.expectError(preservedLine);
    fs::create_directories(file / "inner");
    start();
    EXPECT_TRUE(fs::is_directory(preserved / "inner"));

    log.expectError("rules.json.corrupt-1800000001");
    clock.current += Seconds(1);
    fs::remove(file);
    fs::create_symlink("rules.json", file);
    start();
    EXPECT_TRUE(fs::is_symlink(folder / "rules.json.corrupt-1800000001"));
    EXPECT_TRUE(decodePersisted(textOf(file)));
}

TEST_F(AppRulesStoreTest, AFileThatCanNotBeMovedIsNeverWritten) {
    log.expectError("rules.json failed to decode AND could not be moved aside (File exists) — suppressing saves to "
                    "avoid overwriting it");
    writeText(preserved, "from a start in the same second");
    writeText(file, "not rules");
    const auto time = fs::last_write_time(file);
    auto store = start();
    store.upsert(ruleOf("a", "a"));
    store.setDefaultRule(AppRule::initialDefaultRule());
    store.remove(store.rules().back().id);
    EXPECT_EQ(identifiers(store), systemDefaults) << "edits go on in memory";
    EXPECT_EQ(textOf(file), "not rules");
    EXPECT_EQ(fs::last_write_time(file), time);
    EXPECT_TRUE(defaults()->boolForKey("rulesMigratedFromExcludeList"));
}

TEST_F(AppRulesStoreTest, AFailedSaveKeepsTheEditForTheNextOne) {
    auto store = start();
    fs::rename(folder, folder.parent_path() / "away");
    log.expectError("rules.json save failed: No such file or directory");
    store.upsert(ruleOf("a", "a"));
    fs::rename(folder.parent_path() / "away", folder);
    store.upsert(ruleOf("b", "b"));
    EXPECT_EQ(decodePersisted(textOf(file))->rules, store.rules());
}

} // namespace
} // namespace ambrel
