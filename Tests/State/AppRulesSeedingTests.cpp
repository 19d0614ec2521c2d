#include "State/AppRuleCoding.h"
#include "State/RulesTest.h"

namespace ambrel {
namespace {

using AppRulesSeedingTest = RulesTest;
using Strings = std::vector<std::string>;

AppRule protective(const std::string& identifier, const std::string& name) {
    AppRule rule(identifier, name);
    rule.quitOnLastWindowClose = false;
    rule.includedInQuitAll = false;
    return rule;
}

/// Compares all but the ids.
void expectRule(const std::optional<AppRule>& rule, AppRule expected) {
    ASSERT_TRUE(rule) << expected.bundleIdentifier();
    expected.id = rule->id;
    EXPECT_EQ(*rule, expected) << expected.bundleIdentifier();
}

TEST_F(AppRulesSeedingTest, AFirstStartLocksTheSystemAndProtectsWhatIsInstalled) {
    desktop.workspace().install("us.zoom.xos", "Zoom.app for .apples");
    desktop.workspace().install("com.bitwarden.desktop", "Bitwarden");
    desktop.workspace().install("com.apple.finder", "Files");
    const auto store = start();

    auto expected = systemDefaults;
    expected.insert(expected.end(), {"com.bitwarden.desktop", "us.zoom.xos"});
    EXPECT_EQ(identifiers(store), expected);
    auto finder = protective("com.apple.finder", "Files");
    finder.systemDefault = true;
    expectRule(store.explicitRule("com.apple.finder"), finder);
    expectRule(store.explicitRule("com.bitwarden.desktop"), protective("com.bitwarden.desktop", "Bitwarden"));
    auto zoom = protective("us.zoom.xos", "Zoom for les");
    zoom.quitOnLastWindowClose = true;
    expectRule(store.explicitRule("us.zoom.xos"), zoom);
    EXPECT_EQ(defaults()->stringArrayForKey("protectionSeedsApplied"),
              (Strings{"com.bitwarden.desktop", "us.zoom.xos"}));
    EXPECT_EQ(log.texts("rules"),
              (Strings{"Migrated 0 excluded apps to per-app rules: ",
                       "seeded protection defaults for 2 installed app(s): com.bitwarden.desktop, us.zoom.xos",
                       "safety idle reset: no idle rules to clear (all already none)"}));
}

TEST_F(AppRulesSeedingTest, RulesThatAreThereStayAsTheyAre) {
    AppRule finder("com.apple.finder", "mine");
    AppRule bitwarden("com.bitwarden.desktop", "mine too");
    writeText(file, encode({{bitwarden, finder}, AppRule::initialDefaultRule()}));
    desktop.workspace().install("com.bitwarden.desktop", "Bitwarden");
    const auto store = start();
    EXPECT_EQ(store.rules().at(0), bitwarden);
    EXPECT_EQ(store.rules().at(1), finder);
    EXPECT_EQ(store.rules().size(), 9U);
    EXPECT_EQ(defaults()->stringArrayForKey("protectionSeedsApplied"), Strings{"com.bitwarden.desktop"});
    EXPECT_FALSE(log.contains("seeded protection"));
}

TEST_F(AppRulesSeedingTest, ASeedComesOnceAndNotBeforeItsApplication) {
    start();
    desktop.workspace().install("com.spotify.client", "Spotify");
    auto store = start();
    EXPECT_TRUE(log.contains("seeded protection defaults for 1 installed app(s): com.spotify.client"));
    const auto seeded = store.explicitRule("com.spotify.client");
    ASSERT_TRUE(seeded);
    store.remove(seeded->id);
    EXPECT_EQ(start().explicitRule("com.spotify.client"), std::nullopt) << "the user removed it";
}

TEST_F(AppRulesSeedingTest, TheExcludeListIsCarriedOverOnce) {
    desktop.workspace().install("org.example.Known", "Known");
    defaults()->set("userExcludedBundleIDs", Strings{"org.example.Known", "com.apple.dock", "org.example.Known", "x"});
    const auto store = start();
    expectRule(store.explicitRule("org.example.Known"), protective("org.example.Known", "Known"));
    expectRule(store.explicitRule("x"), protective("x", "x"));
    EXPECT_EQ(store.rules().size(), 10U);
    EXPECT_TRUE(log.contains("Migrated 2 excluded apps to per-app rules: org.example.Known, x"));

    defaults()->set("userExcludedBundleIDs", Strings{"org.example.Late"});
    EXPECT_EQ(start().explicitRule("org.example.Late"), std::nullopt);
}

TEST_F(AppRulesSeedingTest, IdleBehaviourIsClearedOnce) {
    AppRule a("a");
    a.idleBehavior = AppRule::IdleBehavior::quit;
    AppRule b("b");
    b.idleBehavior = AppRule::IdleBehavior::hide;
    writeText(file, encode({{a, AppRule("c"), b}, AppRule::initialDefaultRule()}));
    auto store = start();
    EXPECT_TRUE(log.contains("safety idle reset: forced 2 rule(s) idle->none (re-opt-in required): a=quit, b=hide"));
    const auto saved = decodePersisted(textOf(file));
    ASSERT_TRUE(saved);
    for (const auto& rule : saved->rules) {
        EXPECT_EQ(rule.idleBehavior, AppRule::IdleBehavior::none) << rule.bundleIdentifier();
    }
    store.upsert(b);
    EXPECT_EQ(start().explicitRule("b"), b) << "chosen again";
}

} // namespace
} // namespace ambrel
