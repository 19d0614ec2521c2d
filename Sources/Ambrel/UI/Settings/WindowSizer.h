#pragma once

#include "Core/Logger.h"
#include "UI/Settings/SettingsForm.h"

#include <optional>

#include <QQuickItem>

namespace ambrel {

/// An item without appearance that gives its window the size of the settings form that is shown.
class WindowSizer : public QQuickItem {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(bool isAdvanced READ isAdvanced WRITE setIsAdvanced NOTIFY isAdvancedChanged)

public:
    explicit WindowSizer(QQuickItem* parent = nullptr) : QQuickItem(parent) {}

    [[nodiscard]] bool isAdvanced() const { return isAdvanced_; }
    void setIsAdvanced(bool isAdvanced);
    /// Brings the window to the form about its own centre: at once the first time, with movement after. Waits a while
    /// for a window where there is none yet; without effect for the form that was applied last.
    void apply(bool advanced, int retriesLeft);

Q_SIGNALS:
    void isAdvancedChanged();

protected:
    void componentComplete() override;

private:
    void applyLater();
    void move(const QRect& frame, const SettingsForm& form);
    void finish(const SettingsForm& form);

    Logger log_{"settings"};
    bool isAdvanced_ = false;
    std::optional<bool> applied_;
};

} // namespace ambrel
