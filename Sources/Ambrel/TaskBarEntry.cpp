#include "TaskBarEntry.h"

#include "Platform/Linux/LinuxApplicationHost.h"

#include <QEvent>
#include <QIcon>

namespace ambrel {

TaskBarEntry::TaskBarEntry(LinuxApplicationHost& host) : host_(host) {
    setTitle(QStringLiteral("Ambrel"));
    setFlags(Qt::Window | Qt::FramelessWindowHint);
    resize(1, 1);
    connect(this, &QWindow::windowStateChanged, this, &TaskBarEntry::stateChanged);
    // Later in the turn: a window that is about to come has come by then.
    policy_ = host.policyDidSet.subscribe(
        [this] { QMetaObject::invokeMethod(this, &TaskBarEntry::update, Qt::QueuedConnection); });
}

void TaskBarEntry::update() {
    const bool isWanted = host_.activationPolicy() == ActivationPolicy::regular && !host_.hasVisibleTitledWindow();
    if (isWanted == isVisible()) {
        return;
    }
    if (isWanted) {
        setIcon(QIcon(QStringLiteral(":/ambrel/icon/app.ambrel.Ambrel-48.png")));
        showMinimized();
    } else {
        hide();
    }
}

void TaskBarEntry::stateChanged(Qt::WindowState state) {
    if (isVisible() && state != Qt::WindowMinimized) {
        // Not from within the toolkit's own change of the state.
        QMetaObject::invokeMethod(this, &TaskBarEntry::chosen, Qt::QueuedConnection);
    }
}

void TaskBarEntry::chosen() {
    setWindowState(Qt::WindowMinimized);
    host_.reopen();
}

bool TaskBarEntry::event(QEvent* event) {
    // A task bar's "close" leaves it where the user's setting has put it.
    if (event->type() == QEvent::Close) {
        event->ignore();
        return true;
    }
    return QRasterWindow::event(event);
}

} // namespace ambrel
