#include "UI/RunningApps/RunningAppsController.h"

#include "UI/Models/RunningAppsList.h"
#include "UI/Stage/DockPresence.h"
#include "UI/Stage/GlassWindow.h"
#include "UI/Stage/Stage.h"

namespace ambrel {

RunningAppsController::RunningAppsController(Neighbours neighbours)
    : neighbours_(neighbours), lettingGo_(neighbours.stage.willLetGo.subscribe([this] { window_.reset(); })) {}

RunningAppsController::~RunningAppsController() = default;

void RunningAppsController::show() {
    neighbours_.dock.willShowWindow();
    if (!model_) {
        makeModel();
    }
    if (!window_) {
        makeWindow();
    }
    DockPresence::bringForward(*window_);
}

void RunningAppsController::makeModel() {
    model_ = std::make_unique<RunningAppsModel>(neighbours_.platform, neighbours_.model);
    list_ = std::make_unique<RunningAppsList>(*model_);
}

void RunningAppsController::makeWindow() {
    window_ = GlassWindow::make(neighbours_.stage, neighbours_.compositor, QStringLiteral("RunningAppsView"),
                                {{"apps", QVariant::fromValue(list_.get())}}, size,
                                WindowStyle::titled | WindowStyle::closable | WindowStyle::fullSizeContentView);
    window_->setTitle(QObject::tr("Running Apps"));
    window_->setMinimumSize(size);
    window_->setMaximumSize(size);
    place_.follow(*window_);
    neighbours_.dock.follow(*window_);
}

} // namespace ambrel
