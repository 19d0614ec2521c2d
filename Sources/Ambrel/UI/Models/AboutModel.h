#pragma once

#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

namespace ambrel {

class Platform;

/// What the About tab says of the program, and does.
class AboutModel : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the program")
    Q_PROPERTY(QString version READ version CONSTANT)
    Q_PROPERTY(QString websiteName READ websiteName CONSTANT)

public:
    /// `platform` must outlive this object.
    explicit AboutModel(Platform& platform, QObject* parent = nullptr) : QObject(parent), platform_(platform) {}

    /// "1.0.0" where the bundle doesn't say, and in pictures.
    [[nodiscard]] QString version() const;
    [[nodiscard]] static QString websiteName();
    Q_INVOKABLE void openWebsite();
    Q_INVOKABLE void quit();

private:
    Platform& platform_;
};

} // namespace ambrel
