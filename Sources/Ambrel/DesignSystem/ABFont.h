#pragma once

#include "DesignSystem/ABTextStyle.h"

#include <QObject>
#include <QString>

namespace ambrel {

/// The text styles of every view, for the `style` of an ABText, and what becomes of them at a text scale.
class ABFont : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    Q_PROPERTY(ambrel::ABTextStyle hero READ hero CONSTANT)
    Q_PROPERTY(ambrel::ABTextStyle display READ display CONSTANT)
    Q_PROPERTY(ambrel::ABTextStyle heading READ heading CONSTANT)
    Q_PROPERTY(ambrel::ABTextStyle title READ title CONSTANT)
    Q_PROPERTY(ambrel::ABTextStyle body READ body CONSTANT)
    Q_PROPERTY(ambrel::ABTextStyle bodyMedium READ bodyMedium CONSTANT)
    Q_PROPERTY(ambrel::ABTextStyle caption READ caption CONSTANT)
    Q_PROPERTY(ambrel::ABTextStyle mono READ mono CONSTANT)

public:
    using QObject::QObject;

    [[nodiscard]] static ABTextStyle hero() { return {26, 32, QFont::DemiBold}; }
    [[nodiscard]] static ABTextStyle display() { return {22, 28, QFont::DemiBold}; }
    [[nodiscard]] static ABTextStyle heading() { return {17, 22, QFont::DemiBold}; }
    [[nodiscard]] static ABTextStyle title() { return {13, 18, QFont::DemiBold}; }
    [[nodiscard]] static ABTextStyle body() { return {13, 18}; }
    [[nodiscard]] static ABTextStyle bodyMedium() { return {13, 18, QFont::Medium}; }
    [[nodiscard]] static ABTextStyle caption() { return {11, 15}; }
    [[nodiscard]] static ABTextStyle mono() { return {11, 15, QFont::Normal, true}; }

    /// Where the face of the design is not there, the desktop's own.
    Q_INVOKABLE [[nodiscard]] static QFont font(const ambrel::ABTextStyle& style, double scale);
    Q_INVOKABLE [[nodiscard]] static int lineHeight(const ambrel::ABTextStyle& style, double scale);
    /// What of a line lies above its letters: Qt leaves all of it below them. Whole pixels keep the base line sharp.
    Q_INVOKABLE [[nodiscard]] static int leadingAbove(const ambrel::ABTextStyle& style, double scale);
};

} // namespace ambrel
