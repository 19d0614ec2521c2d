#pragma once

#include "Core/Lifetime.h"
#include "Core/MainQueue.h"
#include "Core/Signal.h"

#include <memory>
#include <vector>

class QQmlEngine;
class QQuickWindow;

namespace ambrel {

/// Where views live: the QML engine, made for the first view and let go, with all views, some time after the last
/// window has closed. Main thread only.
class Stage {
public:
    explicit Stage(MainQueue& queue);
    Stage(const Stage&) = delete;
    Stage& operator=(const Stage&) = delete;
    ~Stage();

    [[nodiscard]] QQmlEngine& engine();
    /// Lets `window` count for as long as it is visible. A titled one counts as a window of the program for the
    /// desktop.
    void follow(QQuickWindow& window, bool isTitled);
    [[nodiscard]] bool hasVisibleTitledWindow() const;

    /// There is a new engine, for what views of any window can name.
    Signal<QQmlEngine&> didMakeEngine;
    /// Whoever keeps a window has to drop it now.
    Signal<> willLetGo;

private:
    struct Followed;
    void visibilityChanged(bool visible);
    void scheduleLettingGo();
    void letGo();

    MainQueue& queue_;
    std::unique_ptr<QQmlEngine> engine_;
    std::vector<std::shared_ptr<Followed>> followed_;
    WorkItemRef lettingGo_;
    Lifetime lifetime_;
};

} // namespace ambrel
