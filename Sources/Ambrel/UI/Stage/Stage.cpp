#include "UI/Stage/Stage.h"

#include "UI/Stage/UnusedMemory.h"

#include <algorithm>

#include <QPointer>
#include <QQmlEngine>
#include <QQuickWindow>

namespace ambrel {

namespace {

/// Long enough that opening a window again is not a first time, short against the hours without any.
constexpr Seconds lettingGoDelay{30};

void preferSoftwareRenderer() {
    if (!qEnvironmentVariableIsSet("QT_QUICK_BACKEND") && !qEnvironmentVariableIsSet("QSG_RHI_BACKEND")) {
        QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
    }
}

} // namespace

struct Stage::Followed {
    QPointer<QQuickWindow> window;
    bool isTitled;
};

Stage::Stage(MainQueue& queue) : queue_(queue) {
    preferSoftwareRenderer();
}

Stage::~Stage() = default;

QQmlEngine& Stage::engine() {
    if (!engine_) {
        engine_ = std::make_unique<QQmlEngine>();
        didMakeEngine.emit(*engine_);
        scheduleLettingGo();
    }
    return *engine_;
}

void Stage::follow(QQuickWindow& window, bool isTitled) {
    std::erase_if(followed_, [](const auto& followed) { return followed->window.isNull(); });
    followed_.push_back(std::make_shared<Followed>(Followed{&window, isTitled}));
    QObject::connect(&window, &QWindow::visibleChanged, &window,
                     lifetime_.guard([this](bool visible) { visibilityChanged(visible); }));
}

bool Stage::hasVisibleTitledWindow() const {
    return std::any_of(followed_.begin(), followed_.end(), [](const auto& followed) {
        return followed->isTitled && followed->window && followed->window->isVisible();
    });
}

void Stage::visibilityChanged(bool visible) {
    if (!visible) {
        scheduleLettingGo();
    } else if (lettingGo_) {
        lettingGo_->cancel();
    }
}

void Stage::scheduleLettingGo() {
    if (lettingGo_) {
        lettingGo_->cancel();
    }
    lettingGo_ = queue_.asyncAfter(lettingGoDelay, lifetime_.guard([this] { letGo(); }));
}

void Stage::letGo() {
    const bool isUsed = std::any_of(followed_.begin(), followed_.end(), [](const auto& followed) {
        return followed->window && followed->window->isVisible();
    });
    if (isUsed) {
        return;
    }
    willLetGo.emit();
    engine_.reset();
    giveBackUnusedMemory();
}

} // namespace ambrel
