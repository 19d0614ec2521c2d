#pragma once

#include "Core/Signal.h"

#include <QRasterWindow>

namespace ambrel {

class LinuxApplicationHost;

/// The program's place in the task bar while it is regular and none of its windows is up: a window that is never seen,
/// since it is iconified from the start, and again when it is brought up. That is how a task bar says that it was
/// chosen, which opens the program again.
class TaskBarEntry final : public QRasterWindow {
public:
    /// `host` must outlive this object.
    explicit TaskBarEntry(LinuxApplicationHost& host);

protected:
    bool event(QEvent* event) override;

private:
    void update();
    void stateChanged(Qt::WindowState state);
    void chosen();

    LinuxApplicationHost& host_;
    Subscription policy_;
};

} // namespace ambrel
