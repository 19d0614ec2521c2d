#pragma once

#include <QFont>
#include <QObject>
#include <QtQml/qqmlregistration.h>

namespace ambrel {

/// What a text style is made of, in pixels before the desktop's text scale.
struct ABTextStyle {
    Q_GADGET
    QML_VALUE_TYPE(abTextStyle)

public:
    int size = 13;
    int line = 18;
    QFont::Weight weight = QFont::Normal;
    bool monospaced = false;

    bool operator==(const ABTextStyle&) const = default;
};

} // namespace ambrel
