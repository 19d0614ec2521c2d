#pragma once

#include <QObject>
#include <QtQml/qqmlregistration.h>

namespace ambrel {

class AppSettings;

/// Sets whether there is an icon in the task bar and one in the tray, and asks before the step that would leave none.
class AppearanceGuard : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the program")
    /// At most one of the two waits for an answer.
    Q_PROPERTY(bool asksToHideMenuBar READ asksToHideMenuBar NOTIFY askingChanged)
    Q_PROPERTY(bool asksToHideDock READ asksToHideDock NOTIFY askingChanged)

public:
    /// `settings` must outlive this object.
    explicit AppearanceGuard(AppSettings& settings, QObject* parent = nullptr) : QObject(parent), settings_(settings) {}

    [[nodiscard]] bool asksToHideMenuBar() const { return asking_ == Confirm::hideMenuBar; }
    [[nodiscard]] bool asksToHideDock() const { return asking_ == Confirm::hideDock; }
    /// At once, or after the answer.
    Q_INVOKABLE void setShowDockIcon(bool value);
    Q_INVOKABLE void setHideMenuBarIcon(bool value);
    /// Does what was asked about.
    Q_INVOKABLE void accept();
    Q_INVOKABLE void cancel() { ask(Confirm::none); }

Q_SIGNALS:
    void askingChanged();

private:
    enum class Confirm { none, hideMenuBar, hideDock };

    void ask(Confirm confirm);

    AppSettings& settings_;
    Confirm asking_ = Confirm::none;
};

} // namespace ambrel
