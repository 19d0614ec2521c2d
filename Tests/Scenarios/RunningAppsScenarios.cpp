#include "Models/RunningAppsModel.h"
#include "Scenarios/EngineScenario.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace ambrel {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class RunningApps : public EngineScenario {
protected:
    RunningAppsModel& model() {
        if (!model_) {
            model_ = std::make_unique<RunningAppsModel>(
                desktop, RunningAppsModel::Neighbours{house().guard, house().audit, house().requests, house().rules});
        }
        return *model_;
    }
    simulated::SimulatedApplication& launchApp(const std::string& name) {
        return desktop.launch("org.example." + name, name);
    }
    static std::vector<std::string> names(const std::vector<RunningApplicationRef>& apps) {
        std::vector<std::string> all;
        for (const auto& app : apps) {
            all.push_back(app->localizedName().value_or(""));
        }
        return all;
    }

private:
    std::unique_ptr<RunningAppsModel> model_;
};

TEST_F(RunningApps, ListsOrdinaryApplicationsByName) {
    launchApp("writer");
    launchApp("Editor");
    desktop.launch(std::nullopt, "éditeur");
    desktop.launch("app.ambrel.Ambrel", "Ambrel");
    desktop.launch("org.example.Panel", "Panel", {.policy = ActivationPolicy::accessory});
    EXPECT_THAT(names(model().apps.get()), ElementsAre("éditeur", "Editor", "writer"));
    launchApp("Calculator");
    desktop.settle();
    EXPECT_EQ(model().apps.get().size(), 3U) << "nobody asked for a new list";
}

TEST_F(RunningApps, TheSearchLooksAtNamesAndIdentifiers) {
    launchApp("Editor");
    launchApp("Writer");
    desktop.launch(std::nullopt, "Unknown");
    const auto found = [&](const char* query) {
        model().query.set(query);
        return names(model().filtered());
    };
    EXPECT_THAT(found(""), ElementsAre("Editor", "Unknown", "Writer"));
    EXPECT_THAT(found("RITE"), ElementsAre("Writer"));
    EXPECT_THAT(found("Org.Example"), ElementsAre("Editor", "Writer"));
    EXPECT_THAT(found("nothing"), IsEmpty());
}

TEST_F(RunningApps, WhatTheGuardRefusesEndsThere) {
    desktop.environment().set("AMBREL_SHADOW_MODE", "1");
    auto& editor = launchApp("Editor");
    model();
    log.clear();
    launchApp("Writer");
    model().quit(editor.shared_from_this(), true);
    desktop.advance(1);
    EXPECT_THAT(log.texts("engine"), IsEmpty());
    EXPECT_THAT(decisions(), ElementsAre("manual skipped(shadow-mode) Editor"));
    EXPECT_EQ(model().apps.get().size(), 1U) << "the list was made anew";
}

TEST_F(RunningApps, ExcludingReplacesTheRule) {
    chooseRule("org.example.Editor", [](AppRule& rule) {
        rule.idleBehavior = AppRule::IdleBehavior::quit;
        rule.quitWhenHidden = true;
    });
    const auto count = house().rules.rules().size();
    model().addToExcludeList(launchApp("Editor"));
    model().addToExcludeList(desktop.launch(std::nullopt, "Nameless"));
    EXPECT_EQ(house().rules.rules().size(), count);
    auto expected = AppRule("org.example.Editor", "Editor");
    expected.id = house().rules.rule("org.example.Editor").id;
    expected.quitOnLastWindowClose = false;
    expected.includedInQuitAll = false;
    EXPECT_EQ(house().rules.rule("org.example.Editor"), expected);
}

} // namespace
} // namespace ambrel
