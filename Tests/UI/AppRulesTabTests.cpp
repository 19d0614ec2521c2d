#include "UI/ViewTest.h"

#include <QQuickItem>
#include <QTest>
#include <gmock/gmock.h>

namespace ambrel {
namespace {

using IdleBehavior = AppRule::IdleBehavior;

class AppRulesTab : public ViewTest {
protected:
    void open() {
        house().settings.settingsAdvancedMode.set(true);
        windows().showSettings();
        click("App Rules");
    }
    /// Opens the tab with an ordinary rule, as `choose` has changed it, selected.
    void openRule(const std::function<void(AppRule&)>& choose = [](AppRule&) {}) {
        AppRule rule(editor, "Editor");
        choose(rule);
        house().rules.upsert(rule);
        open();
        selectEditor();
    }
    void selectEditor() {
        search("Editor");
        click("Editor");
        ASSERT_TRUE(eventually([this] { return !shows("Applied to apps without their own rule"); }));
    }
    void search(const std::string& text) {
        click("Search");
        type(text);
    }
    void type(const std::string& text) {
        for (const char letter : text) {
            QTest::keyClick(window(), letter);
        }
        QCoreApplication::processEvents();
    }
    /// As Tab does in the end.
    void focus(const std::string& name) {
        ASSERT_NE(item(name), nullptr) << name;
        item(name)->forceActiveFocus(Qt::TabFocusReason);
    }
    void use(const std::string& name) {
        focus(name);
        press(Qt::Key_Return);
    }
    void answer(std::initializer_list<Qt::Key> keys) {
        ASSERT_TRUE(eventually([this] { return isAsked(); }));
        for (const auto key : keys) {
            press(key);
        }
        ASSERT_TRUE(eventually([this] { return !isAsked(); }));
    }
    [[nodiscard]] bool isAsked() { return shows("Reset this rule to default values?") || shows("Remove this rule?"); }
    [[nodiscard]] QQuickItem* item(const std::string& name) {
        auto* const found = element(name);
        return found == nullptr ? nullptr : qobject_cast<QQuickItem*>(found->object());
    }
    [[nodiscard]] bool isEnabled(const std::string& name) { return item(name) != nullptr && item(name)->isEnabled(); }
    [[nodiscard]] AppRule stored() { return house().rules.explicitRule(editor).value(); }

    static constexpr const char* editor = "org.example.Editor";
};

TEST_F(AppRulesTab, StoresEachEditAtOnce) {
    openRule();
    for (const char* choice : {"Quit when the last window closes", "Quit when hidden", "Include in Quit All"}) {
        click(choice);
    }
    EXPECT_FALSE(stored().quitOnLastWindowClose);
    EXPECT_TRUE(stored().quitWhenHidden);
    EXPECT_FALSE(stored().includedInQuitAll);
}

TEST_F(AppRulesTab, AsksForATimeOnlyWhereIdlingHasAnEffect) {
    openRule([](AppRule& rule) { rule.idleThresholdMinutes = 240; });
    EXPECT_FALSE(shows("After 240 minutes"));
    click("Hide");
    EXPECT_EQ(stored().idleBehavior, IdleBehavior::hide);
    EXPECT_TRUE(shows("After 240 minutes")) << "what the file says, even where no step leads";
    EXPECT_TRUE(shows("Hides the app (keeps its state) once idle this long."));
    click("Quit");
    EXPECT_EQ(stored().idleBehavior, IdleBehavior::quit);
    EXPECT_TRUE(shows("Quits the app once idle this long."));
    focus("After 240 minutes");
    press(Qt::Key_Up);
    EXPECT_EQ(stored().idleThresholdMinutes, 120);
    press(Qt::Key_Down);
    EXPECT_EQ(stored().idleThresholdMinutes, 115);
    EXPECT_TRUE(shows("After 115 minutes"));
}

TEST_F(AppRulesTab, EnablesWhatMayBeChosenForTheKindOfRule) {
    struct Case {
        const char* name;
        std::function<void()> select;
        bool quits, hides, isRemovable;
    };
    desktop.workspace().install("com.apple.finder", "Files");
    open();
    EXPECT_TRUE(shows("Applied to apps without their own rule"));
    const std::vector<Case> cases{{"default", [] {}, true, false, false},
                                  {"locked",
                                   [this] {
                                       click("Add App…");
                                       ASSERT_TRUE(eventually([this] { return shows("Files"); }));
                                       press(Qt::Key_Return);
                                   },
                                   false, false, false},
                                  {"ordinary",
                                   [this] {
                                       house().rules.upsert({editor, "Editor"});
                                       desktop.settle();
                                       search("Editor");
                                       click("Editor");
                                   },
                                   true, true, true}};
    for (const auto& [name, select, quits, hides, isRemovable] : cases) {
        select();
        ASSERT_TRUE(eventually([&, isRemovable = isRemovable, quits = quits] {
            return shows("Remove") == isRemovable && shows("Reset to Defaults") == quits &&
                   isEnabled("Include in Quit All") == quits;
        })) << name;
        EXPECT_EQ(isEnabled("Quit when the last window closes"), quits) << name;
        EXPECT_EQ(isEnabled("Quit when hidden"), hides) << name;
        EXPECT_EQ(isEnabled("None"), hides) << name;
    }
}

TEST_F(AppRulesTab, KeepsTheEditorWhereItIsWhileASearchHidesItsRow) {
    openRule();
    search(" and nothing else");
    EXPECT_TRUE(shows("Default rule"));
    EXPECT_FALSE(shows("Terminal"));
    EXPECT_TRUE(shows("Remove"));
    click("Quit when the last window closes");
    EXPECT_FALSE(stored().quitOnLastWindowClose);
    click("Clear");
    click("Default rule");
    EXPECT_TRUE(eventually([this] { return !shows("Remove"); }));
}

TEST_F(AppRulesTab, ResetsAndRemovesAfterAQuestion) {
    openRule([](AppRule& rule) {
        rule.idleBehavior = IdleBehavior::quit;
        rule.idleThresholdMinutes = 45;
    });
    const auto before = stored();
    use("Reset to Defaults");
    answer({Qt::Key_Escape});
    EXPECT_EQ(stored(), before);
    use("Reset to Defaults");
    answer({Qt::Key_Return});
    EXPECT_EQ(stored().idleBehavior, IdleBehavior::none);
    EXPECT_EQ(stored().idleThresholdMinutes, 30);
    EXPECT_NE(stored().id, before.id);

    use("Remove");
    EXPECT_TRUE(eventually([this] { return shows("Editor will use the default rule again."); }));
    answer({Qt::Key_Return});
    EXPECT_TRUE(house().rules.explicitRule(editor)) << "Return removed without being asked to";
    use("Remove");
    answer({Qt::Key_Tab, Qt::Key_Return});
    EXPECT_FALSE(house().rules.explicitRule(editor));
    EXPECT_TRUE(eventually([this] { return shows("Applied to apps without their own rule"); }));
}

TEST_F(AppRulesTab, BringsAnAddedRuleIntoSight) {
    for (int number = 0; number < 60; ++number) {
        house().rules.upsert(AppRule("org.example.Rule" + std::to_string(number)));
    }
    desktop.workspace().install("org.example.Zebra", "Zebra");
    open();
    click("Add App…");
    ASSERT_TRUE(eventually([this] { return shows("Zebra"); }));
    type("Zebra");
    press(Qt::Key_Return);
    EXPECT_TRUE(eventually([this] {
        // Where the row is out of sight, only the heading of the editor has this name.
        return shows("Remove") && element("Zebra")->role() != QAccessible::Heading &&
               window()->geometry().contains(element("Zebra")->rect());
    }));
}

TEST_F(AppRulesTab, AddsAnApplicationThatIsTypedForOrNamedByItsFile) {
    auto& workspace = desktop.workspace();
    workspace.install(editor, "Editor");
    workspace.install("org.example.Edible", "Cookbook");
    const auto player = workspace.install("org.example.Player", "Player").url;
    open();
    for (const auto& [typed, steps, expected] : std::vector<std::tuple<std::string, int, std::string>>{
             {"EDI", 1, editor}, {player.string(), 0, "org.example.Player"}}) {
        click("Add App…");
        ASSERT_TRUE(eventually([this] { return shows("Cookbook"); }));
        type(typed);
        for (int step = 0; step < steps; ++step) {
            press(Qt::Key_Down);
        }
        press(Qt::Key_Return);
        ASSERT_TRUE(house().rules.explicitRule(expected)) << typed;
        EXPECT_TRUE(eventually([&, text = expected] { return shows(text) && shows("Remove"); })) << typed;
    }
    EXPECT_FALSE(house().rules.explicitRule("org.example.Edible"));
    click("Add App…");
    type("no such thing");
    press(Qt::Key_Return);
    EXPECT_TRUE(shows("No application found"));
    press(Qt::Key_Escape);
    EXPECT_TRUE(eventually([this] { return !shows("No application found"); }));
}

} // namespace
} // namespace ambrel
