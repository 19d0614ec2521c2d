#pragma once

#include "Core/Clock.h"
#include "Core/Signal.h"
#include "Platform/StatusBar.h"

#include <chrono>
#include <functional>
#include <memory>
#include <optional>

#include <QObject>
#include <QVariantMap>

class QQuickView;

namespace ambrel {

class ClickMonitor;
class Compositor;
class Stage;
class Workspace;

/// A panel that hangs from the status item and takes the keyboard without becoming the active window: the application
/// in front stays in front. Closes on Escape, on a click elsewhere, and when another window becomes active.
class KeyablePanel : public QObject {
    Q_OBJECT

public:
    struct Neighbours {
        Stage& stage;
        Compositor& compositor;
        ClickMonitor& clicks;
        Workspace& workspace;
    };

    explicit KeyablePanel(Neighbours neighbours);
    ~KeyablePanel() override;

    /// Shows a view of the type `rootView`, made with `properties` unless the last one is still there and of this type,
    /// under the item, as large as it asks to be. A click that has just closed the panel doesn't open it again.
    void show(const StatusItemPlace& place, const QString& rootView, const QVariantMap& properties);
    void dismiss();
    [[nodiscard]] bool isVisible() const;
    /// Lets go of the view, so that the next opening builds one of its own.
    void forget();

    [[nodiscard]] QQuickView* window() const { return window_.get(); }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct Press {
        double x;
        double y;
        std::chrono::steady_clock::time_point when;
    };
    void makeWindow(const QString& rootView, const QVariantMap& properties);
    [[nodiscard]] bool isTranslucent() const;
    void putInPlace();
    void takeKeyboard();
    void installMonitors();
    void removeMonitors();
    void pressed(double x, double y);
    [[nodiscard]] bool wasClosedByThisClick(const StatusItemPlace& place) const;

    Neighbours neighbours_;
    std::unique_ptr<QQuickView> window_;
    QString rootView_;
    StatusItemPlace place_;
    std::optional<Press> closing_;
    Subscription clicks_;
    Subscription activation_;
    Subscription lettingGo_;
};

} // namespace ambrel
