#include "Capture/Registry.h"

#include "Capture/Fixtures.h"
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
             {"hotKey", fixtures.hotKey()}},
            {pageWidth, 0}};
}

Picture history(Fixtures& fixtures, const char* key) {
    return {key, view("HistoryTab"), {{"history", fixtures.history()}}, {pageWidth, 0}};
}

QVariantMap question(Fixtures& fixtures, bool force) {
    return {{"count", fixtures.openApplications}, {"force", force}, {"answer", fixtures.confirmation()}};
}

} // namespace

std::vector<Picture> registry(Fixtures& fixtures) {
    const auto settings = fixtures.settings();
    const auto engine = fixtures.engine();
    return {
        {"settings-simple", view("SimpleSettingsView"), {{"settings", settings}}, simpleForm},
        {"settings-advanced",
         view("AdvancedSettingsPreview"),
         {{"settings", settings},
          {"engine", engine},
          {"appearance", fixtures.appearance()},
          {"hotKey", fixtures.hotKey()}},
         advancedForm},
        general(fixtures, "general"),
        {"about", view("AboutTab"), {{"about", fixtures.about()}}, {pageWidth, advancedForm.height()}},
        history(fixtures, "history"),
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
        general(fixtures, "settings-general"),
        history(fixtures, "settings-history"),
    };
}

} // namespace ambrel
