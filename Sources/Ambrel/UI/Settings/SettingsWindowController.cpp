#include "UI/Settings/SettingsWindowController.h"

#include "State/AppSettings.h"
#include "UI/Models/AboutModel.h"
#include "UI/Models/AppearanceGuard.h"
#include "UI/Models/ApplicationChooser.h"
#include "UI/Models/EngineModel.h"
#include "UI/Models/HistoryModel.h"
#include "UI/Models/HotKeySwitch.h"
#include "UI/Models/LoginSwitch.h"
#include "UI/Models/RulesModel.h"
#include "UI/Models/SettingsModel.h"
#include "UI/Models/UpdatesModel.h"
#include "UI/Settings/SettingsForm.h"
#include "UI/Stage/DockPresence.h"
#include "UI/Stage/GlassWindow.h"
#include "UI/Stage/Stage.h"
#include "UI/Stage/WindowAnimation.h"

namespace ambrel {

namespace {

constexpr double scaleFrom = 0.96;
constexpr double fromAlpha = 0.92;
constexpr double durationSeconds = 0.2;

StyleMask style() {
    return WindowStyle::titled | WindowStyle::closable | WindowStyle::miniaturizable | WindowStyle::resizable |
           WindowStyle::fullSizeContentView;
}

} // namespace

SettingsWindowController::SettingsWindowController(Neighbours neighbours)
    : neighbours_(neighbours), lettingGo_(neighbours.stage.willLetGo.subscribe([this] { window_.reset(); })) {}

SettingsWindowController::~SettingsWindowController() = default;

void SettingsWindowController::show() {
    neighbours_.dock.willShowWindow();
    const bool isNew = !window_;
    if (isNew) {
        makeWindow();
    }
    DockPresence::bringForward(*window_);
    if (isNew) {
        animateWindowIn(*window_, scaleFrom, fromAlpha, durationSeconds);
    }
}

void SettingsWindowController::makeWindow() {
    const auto form = SettingsForm::of(neighbours_.settings.settingsAdvancedMode.get());
    window_ = GlassWindow::make(neighbours_.stage, neighbours_.compositor, QStringLiteral("SettingsRoot"),
                                {{"settings", QVariant::fromValue(&neighbours_.settingsModel)},
                                 {"engine", QVariant::fromValue(&neighbours_.engineModel)},
                                 {"appearance", QVariant::fromValue(&neighbours_.appearance)},
                                 {"hotKey", QVariant::fromValue(&neighbours_.hotKey)},
                                 {"login", QVariant::fromValue(&neighbours_.login)},
                                 {"history", QVariant::fromValue(&neighbours_.history)},
                                 {"about", QVariant::fromValue(&neighbours_.about)},
                                 {"updates", QVariant::fromValue(&neighbours_.updates)},
                                 {"rules", QVariant::fromValue(&neighbours_.rules)},
                                 {"chooser", QVariant::fromValue(&neighbours_.chooser)}},
                                form.size, style());
    window_->setTitle(QStringLiteral("Ambrel"));
    window_->setMinimumSize(form.minimum);
    window_->setMaximumSize(form.maximum);
    place_.follow(*window_);
    neighbours_.dock.follow(*window_);
}

} // namespace ambrel
