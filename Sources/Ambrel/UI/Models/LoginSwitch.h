#pragma once

#include <QObject>
#include <QtQml/qqmlregistration.h>

namespace ambrel {

class LoginItem;

/// Whether the program starts at login, as far as the desktop has said when it was last asked.
class LoginSwitch : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the program")
    Q_PROPERTY(bool isEnabled READ isEnabled NOTIFY isEnabledChanged)

public:
    /// `item` must outlive this object.
    explicit LoginSwitch(LoginItem& item, QObject* parent = nullptr) : QObject(parent), item_(item) {}

    [[nodiscard]] bool isEnabled() const { return isEnabled_; }
    /// Asks the desktop; for a view that comes on screen.
    Q_INVOKABLE void refresh();
    /// Shows what the desktop has made of it, and not what was asked for.
    Q_INVOKABLE void set(bool value);

Q_SIGNALS:
    void isEnabledChanged();

private:
    LoginItem& item_;
    bool isEnabled_ = false;
};

} // namespace ambrel
