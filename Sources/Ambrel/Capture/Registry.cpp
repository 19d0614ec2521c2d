#include "Capture/Registry.h"

#include "Capture/Fixtures.h"
#include "Capture/SampleRules.h"
#include "UI/Gate/AccessibilityGateController.h"
#include "UI/Onboarding/OnboardingController.h"
#include "UI/RunningApps/RunningAppsController.h"
#include "UI/Settings/SettingsForm.h"
#include "UI/Stage/GlassWindow.h"

namespace ambrel {

namespace {

constexpr QSize simpleForm = SettingsForm::of(false).size;
constexpr QSize advancedForm = SettingsForm::of(true).size;
/// A page of the advanced form, beside the sidebar.
constexpr int pageWidth = advancedForm.width() - 200;

QUrl view(const char* name) {
    return GlassWindow::source(QString::fromLatin1(name));
}

QUrl designSample() {
    return QStringLiteral("qrc:/qt-project.org/imports/Ambrel/DesignSystem/DesignSample.qml");
}

Picture general(Fixtures& fixtures, const char* key) {
    return {key,
            view("GeneralTab"),
            {{"settings", fixtures.settings()},
             {"engine", fixtures.engine()},
             {"appearance", fixtures.appearance()},
             {"hotKey", fixtures.hotKey()},
             {"login", fixtures.login()}},
            {pageWidth, 0}};
}

Picture history(Fixtures& fixtures, const char* key) {
    return {key, view("HistoryTab"), {{"history", fixtures.history()}}, {pageWidth, 0}};
}

Picture rules(Fixtures& fixtures, const char* key, const QVariant& rules, const char* selected) {
    return {key,
            view("AppRulesTab"),
            {{"rules", rules}, {"chooser", fixtures.chooser()}, {"selected", QString::fromLatin1(selected)}},
            {pageWidth, advancedForm.height()}};
}

Picture gate(Fixtures& fixtures) {
    return {
        "gate", view("AccessibilityGateView"), {{"permission", fixtures.gate()}}, AccessibilityGateController::size};
}

Picture onboarding(const char* key, const QVariant& steps) {
    return {key, view("OnboardingRoot"), {{"steps", steps}}, OnboardingController::size};
}

QVariantMap question(Fixtures& fixtures, bool force) {
    return {{"count", fixtures.openApplications}, {"force", force}, {"answer", fixtures.confirmation()}};
}

} // namespace

std::vector<Picture> registry(Fixtures& fixtures) {
    const auto settings = fixtures.settings();
    const auto engine = fixtures.engine();
    return {
        {"settings-simple",
         view("SimpleSettingsView"),
         {{"settings", settings}, {"login", fixtures.login()}},
         simpleForm},
        {"settings-advanced",
         view("AdvancedSettingsPreview"),
         {{"settings", settings},
          {"engine", engine},
          {"appearance", fixtures.appearance()},
          {"hotKey", fixtures.hotKey()},
          {"login", fixtures.login()}},
         advancedForm},
        general(fixtures, "general"),
        rules(fixtures, "rules-empty", fixtures.noRules(), AppRulesModel::defaultRow),
        rules(fixtures, "rules-userrules-default", fixtures.userRules(), AppRulesModel::defaultRow),
        rules(fixtures, "rules-userrules-discord", fixtures.userRules(), sampleThatHides),
        {"about",
         view("AboutTab"),
         {{"about", fixtures.about()}, {"updates", fixtures.updates()}},
         {pageWidth, advancedForm.height()}},
        history(fixtures, "history"),
        gate(fixtures),
        onboarding("onboard-welcome", fixtures.welcome()),
        onboarding("onboard-demo", fixtures.demo()),
        onboarding("onboard-demo-completed", fixtures.completedDemo()),
        {"running-apps", view("RunningAppsView"), {{"apps", fixtures.runningApps()}}, RunningAppsController::size},
        {"dropdown",
         view("DropdownContent"),
         {{"settings", settings}, {"engine", engine}, {"actions", fixtures.dropdown()}},
         {}},
        {"quitall-confirm", view("QuitAllConfirmView"), question(fixtures, false), {}},
        {"quitall-forcequit", view("QuitAllConfirmView"), question(fixtures, true), {}},
    };
}

std::vector<Picture> shots(Fixtures& fixtures) {
    return {
        {"design-sample", designSample(), {}, {}},
        gate(fixtures),
        onboarding("onboard-welcome", fixtures.welcome()),
        onboarding("onboard-demo", fixtures.demo()),
        general(fixtures, "settings-general"),
        rules(fixtures, "settings-rules", fixtures.userRules(), sampleThatHides),
        history(fixtures, "settings-history"),
    };
}

} // namespace ambrel
