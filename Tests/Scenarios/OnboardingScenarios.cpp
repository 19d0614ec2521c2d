#include "Engine/AccessibilityGate.h"
#include "Models/OnboardingModel.h"
#include "Scenarios/EngineScenario.h"

#include <algorithm>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace ambrel {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class FirstSteps : public EngineScenario {
protected:
    void begin(bool trusted) {
        desktop.windowList().setReadable(trusted);
        model.emplace(desktop, engine());
        announcement_ = model->announcement.subscribe([this](const std::string& text) { announced.push_back(text); });
        log.clear();
    }
    simulated::SimulatedApplication& launchEditor() { return desktop.launch("com.apple.TextEdit", "Text Editor"); }
    [[nodiscard]] std::size_t settingsOpened() {
        const auto& links = desktop.workspace().links;
        return static_cast<std::size_t>(std::count(links.begin(), links.end(), AccessibilityGate::settingsLink));
    }

    std::optional<OnboardingModel> model;
    std::vector<std::string> announced;

private:
    Subscription announcement_;
};

TEST_F(FirstSteps, OpenTheSettingsOnceWhereThePermissionIsLongInComing) {
    begin(false);
    model->getStarted();
    desktop.advance(2.9);
    EXPECT_EQ(settingsOpened(), 0U);
    desktop.advance(60);
    EXPECT_EQ(settingsOpened(), 1U);
    EXPECT_EQ(model->state.get(), OnboardingState::waitingForPermission);

    model->getStarted();
    desktop.advance(1);
    model->openSystemSettings();
    EXPECT_EQ(settingsOpened(), 2U);
    desktop.advance(60);
    EXPECT_EQ(settingsOpened(), 2U) << "opened again by itself";
    desktop.windowList().setReadable(true);
    desktop.advance(1);
    EXPECT_EQ(model->state.get(), OnboardingState::demo) << "nobody waited any more";
}

TEST_F(FirstSteps, TheDemoIsTheEngineQuittingTheEditor) {
    begin(true);
    EXPECT_EQ(model->state.get(), OnboardingState::demo);
    model->openTextEdit();
    EXPECT_THAT(desktop.workspace().opened, IsEmpty()) << "none is installed";
    const auto editor = desktop.workspace().install("com.apple.TextEdit", "Text Editor");
    desktop.launch("org.example.Other", "Other").crash();
    desktop.settle();
    EXPECT_EQ(model->demo.get(), DemoCardState::waiting);
    model->openTextEdit();
    EXPECT_THAT(desktop.workspace().opened, ElementsAre(editor.url));
    desktop.settle();
    EXPECT_EQ(model->demo.get(), DemoCardState::watching);
    EXPECT_TRUE(model->textEditRunning.get());

    auto& app = *desktop.workspace().applications().back();
    app.openWindow();
    desktop.advance(10);
    app.closeWindows();
    desktop.advance(10);
    EXPECT_EQ(model->demo.get(), DemoCardState::completed);
    EXPECT_FALSE(model->textEditRunning.get());
    EXPECT_THAT(announced, ElementsAre("Ambrel quit TextEdit for you. Setup is complete."));
    EXPECT_THAT(terminated(), ElementsAre(app.processIdentifier()));

    auto& again = launchEditor();
    desktop.settle();
    EXPECT_TRUE(model->textEditRunning.get());
    again.crash();
    desktop.settle();
    EXPECT_EQ(announced.size(), 1U) << "told twice";
}

TEST_F(FirstSteps, AnEditorThatRunsAlreadyIsWatchedAndOneThatHasEndedIsNot) {
    launchEditor().crash();
    desktop.settle();
    begin(true);
    EXPECT_EQ(model->demo.get(), DemoCardState::waiting);
    EXPECT_THAT(announced, IsEmpty());
    model.reset();

    auto& editor = launchEditor();
    desktop.settle();
    begin(true);
    EXPECT_EQ(model->demo.get(), DemoCardState::watching);
    editor.crash();
    desktop.settle();
    EXPECT_EQ(model->demo.get(), DemoCardState::completed) << "however it ended";
}

TEST_F(FirstSteps, NothingIsWaitedForAfterAnEarlyEnd) {
    begin(false);
    model->getStarted();
    model->teardown();
    desktop.advance(10);
    EXPECT_EQ(settingsOpened(), 0U);
    desktop.windowList().setReadable(true);
    desktop.advance(10);
    EXPECT_EQ(model->state.get(), OnboardingState::waitingForPermission);
    EXPECT_FALSE(log.contains("engine started"));
}

} // namespace
} // namespace ambrel
