#pragma once

#include "Core/Signal.h"
#include "Models/RunningAppsModel.h"
#include "UI/Stage/WindowPlace.h"

#include <memory>

#include <QSize>

class QQuickView;

namespace ambrel {

class Compositor;
class DockPresence;
class RunningAppsList;
class Stage;

/// The Running Apps window: built when it is first shown, and hidden when it is closed. Its model stays with what was
/// typed and chosen, also when the stage lets go of its views.
class RunningAppsController {
public:
    struct Neighbours {
        Stage& stage;
        Compositor& compositor;
        DockPresence& dock;
        Platform& platform;
        RunningAppsModel::Neighbours model;
    };

    /// Of the window's content.
    static constexpr QSize size{440, 500};

    explicit RunningAppsController(Neighbours neighbours);
    RunningAppsController(const RunningAppsController&) = delete;
    RunningAppsController& operator=(const RunningAppsController&) = delete;
    ~RunningAppsController();

    void show();

private:
    void makeModel();
    void makeWindow();

    Neighbours neighbours_;
    std::unique_ptr<RunningAppsModel> model_;
    std::unique_ptr<RunningAppsList> list_;
    WindowPlace place_;
    std::unique_ptr<QQuickView> window_;
    Subscription lettingGo_;
};

} // namespace ambrel
