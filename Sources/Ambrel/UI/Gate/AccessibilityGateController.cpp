#include "UI/Gate/AccessibilityGateController.h"

#include "UI/Models/GatePermission.h"
#include "UI/Stage/DockPresence.h"
#include "UI/Stage/GlassWindow.h"
#include "UI/Stage/Stage.h"

#include <utility>

namespace ambrel {

AccessibilityGateController::AccessibilityGateController(Neighbours neighbours)
    : neighbours_(neighbours), lettingGo_(neighbours.stage.willLetGo.subscribe([this] { letGo(); })) {}

AccessibilityGateController::~AccessibilityGateController() {
    letGo();
}

void AccessibilityGateController::present(Windows::GateActions actions) {
    letGo();
    actions_ = std::move(actions);
    permission_ = std::make_unique<GatePermission>(neighbours_.windows, actions_.openSettings);
    makeWindow();
    isPresented_ = true;
    neighbours_.dock.willShowWindow();
    DockPresence::bringForward(*window_);
}

void AccessibilityGateController::makeWindow() {
    window_ = GlassWindow::make(neighbours_.stage, neighbours_.compositor, QStringLiteral("AccessibilityGateView"),
                                {{"permission", QVariant::fromValue(permission_.get())}}, size,
                                WindowStyle::titled | WindowStyle::closable | WindowStyle::fullSizeContentView);
    window_->setTitle(QStringLiteral("Ambrel"));
    window_->setMinimumSize(size);
    window_->setMaximumSize(size);
    neighbours_.dock.follow(*window_);
    QObject::connect(window_.get(), &QWindow::visibleChanged, window_.get(), [this](bool visible) {
        if (!visible) {
            windowDidClose();
        }
    });
}

void AccessibilityGateController::windowDidClose() {
    if (std::exchange(isPresented_, false)) {
        actions_.onClose();
    }
}

void AccessibilityGateController::dismiss() {
    if (std::exchange(isPresented_, false)) {
        window_->hide();
    }
    neighbours_.dock.restore();
}

void AccessibilityGateController::letGo() {
    isPresented_ = false;
    window_.reset();
    permission_.reset();
}

} // namespace ambrel
