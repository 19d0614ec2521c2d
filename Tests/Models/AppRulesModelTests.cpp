#include "Models/AppRulesModel.h"
#include "State/AppRulesStore.h"
#include "Support/AmbrelTest.h"

#include <gmock/gmock.h>

namespace ambrel {
namespace {

using ::testing::ElementsAre;

class AppRulesModelTests : public AmbrelTest {
protected:
    AppRulesModelTests() {
        // The seeds of a first start would be in the way.
        for (const auto& rule : std::vector(store.rules())) {
            store.remove(rule.id);
        }
    }
    void add(const std::string& identifier, const std::string& name) { store.upsert({identifier, name}); }
    [[nodiscard]] std::vector<std::string> listed() const {
        std::vector<std::string> ids;
        for (const auto& row : model.rows()) {
            ids.push_back(row.id);
        }
        return ids;
    }

    FakeClock clock{Date(Seconds(0))};
    AppRulesStore store{desktop, clock};
    AppRulesModel model{desktop, store};
};

TEST_F(AppRulesModelTests, ListsByNameBelowTheDefaultRowWhichIsNeverFiltered) {
    add("org.example.Zebra", "zebra");
    add("org.example.Editor", "Éditeur");
    add("net.example.Mail", "Mail");
    EXPECT_THAT(listed(), ElementsAre("__default__", "org.example.Editor", "net.example.Mail", "org.example.Zebra"));
    model.query.set("ORG.EXAMPLE");
    EXPECT_THAT(listed(), ElementsAre("__default__", "org.example.Editor", "org.example.Zebra"));
    model.query.set("éd");
    EXPECT_THAT(listed(), ElementsAre("__default__", "org.example.Editor"));
    model.query.set("com.apple.finder");
    EXPECT_THAT(listed(), ElementsAre("__default__")) << "a locked rule is listed";
    EXPECT_EQ(store.rules().back().bundleIdentifier(), "net.example.Mail") << "the list is for show only";
}

TEST_F(AppRulesModelTests, ARowIsActiveWhereItsRuleIsNoOrdinaryOne) {
    const auto isActive = [&](const std::function<void(AppRule&)>& change) {
        AppRule rule("org.example.Mail");
        change(rule);
        store.upsert(rule);
        return model.rows().back().active;
    };
    EXPECT_FALSE(isActive([](AppRule&) {}));
    EXPECT_FALSE(isActive([](AppRule& rule) { rule.quitWhenHidden = true; }));
    EXPECT_TRUE(isActive([](AppRule& rule) { rule.quitOnLastWindowClose = false; }));
    EXPECT_TRUE(isActive([](AppRule& rule) { rule.idleBehavior = AppRule::IdleBehavior::hide; }));
    EXPECT_TRUE(isActive([](AppRule& rule) { rule.includedInQuitAll = false; }));
}

TEST_F(AppRulesModelTests, AnApplicationIsAddedOnceAndSelected) {
    desktop.workspace().install("org.example.Mail", "Mail.app");
    model.addApp("org.example.Mail");
    EXPECT_EQ(model.selectedRule()->displayName, "Mail");
    const auto id = model.selectedRule()->id;
    model.selection.set("__default__");
    model.addApp("org.example.Mail");
    EXPECT_EQ(model.selectedRule()->id, id);
    model.addApp("org.example.Nobody");
    EXPECT_EQ(model.selectedRule()->displayName, "org.example.Nobody");

    const auto count = store.rules().size();
    model.addApp("com.apple.finder");
    EXPECT_EQ(store.rules().size(), count);
    EXPECT_TRUE(model.selectedRule()->systemDefault) << "this is the one way to a locked rule";
}

} // namespace
} // namespace ambrel
