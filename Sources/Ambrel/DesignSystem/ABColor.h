#pragma once

#include <QColor>
#include <QObject>
#include <QtQml/qqmlregistration.h>

namespace ambrel {

/// The colours of every view. They follow the desktop's appearance at once.
class ABColor : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    Q_PROPERTY(QColor accent READ accent CONSTANT)
    Q_PROPERTY(QColor accentMuted READ accentMuted CONSTANT)
    Q_PROPERTY(QColor accentFill READ accentFill NOTIFY adapted)
    Q_PROPERTY(QColor accentText READ accentText CONSTANT)
    Q_PROPERTY(QColor error READ error NOTIFY adapted)
    Q_PROPERTY(QColor success READ success NOTIFY adapted)
    Q_PROPERTY(QColor warning READ warning NOTIFY adapted)
    Q_PROPERTY(QColor textPrimary READ textPrimary NOTIFY adapted)
    Q_PROPERTY(QColor textSecondary READ textSecondary NOTIFY adapted)
    Q_PROPERTY(QColor textTertiary READ textTertiary NOTIFY adapted)
    Q_PROPERTY(QColor windowBg READ windowBg NOTIFY adapted)
    Q_PROPERTY(QColor contentBg READ contentBg NOTIFY adapted)
    Q_PROPERTY(QColor surfaceHover READ surfaceHover NOTIFY adapted)
    Q_PROPERTY(QColor divider READ divider NOTIFY adapted)
    Q_PROPERTY(QColor stateActive READ accent CONSTANT)
    Q_PROPERTY(QColor statePaused READ textTertiary NOTIFY adapted)
    Q_PROPERTY(QColor material READ material NOTIFY adapted)
    Q_PROPERTY(QColor materialEdge READ materialEdge NOTIFY adapted)
    Q_PROPERTY(QColor control READ control NOTIFY adapted)
    Q_PROPERTY(QColor controlEdge READ controlEdge NOTIFY adapted)
    Q_PROPERTY(QColor raised READ raised NOTIFY adapted)
    Q_PROPERTY(QColor knob READ knob CONSTANT)
    Q_PROPERTY(QColor shadow READ shadow NOTIFY adapted)
    Q_PROPERTY(QColor scrim READ scrim NOTIFY adapted)

public:
    explicit ABColor(QObject* parent = nullptr);

    [[nodiscard]] static QColor accent();
    [[nodiscard]] static QColor accentMuted();
    /// The accent where words stand on it, and those words.
    [[nodiscard]] static QColor accentFill();
    [[nodiscard]] static QColor accentText();
    [[nodiscard]] static QColor error();
    [[nodiscard]] static QColor success();
    [[nodiscard]] static QColor warning();
    [[nodiscard]] static QColor textPrimary();
    [[nodiscard]] static QColor textSecondary();
    [[nodiscard]] static QColor textTertiary();
    [[nodiscard]] static QColor windowBg();
    [[nodiscard]] static QColor contentBg();
    [[nodiscard]] static QColor surfaceHover();
    [[nodiscard]] static QColor divider();
    /// What stands in for glass, and the line along its inside.
    [[nodiscard]] static QColor material();
    [[nodiscard]] static QColor materialEdge();
    /// What can be pressed, on any surface: its body, its outline, the chosen one of several, the knob of a switch, and
    /// what that throws under itself.
    [[nodiscard]] static QColor control();
    [[nodiscard]] static QColor controlEdge();
    [[nodiscard]] static QColor raised();
    [[nodiscard]] static QColor knob();
    [[nodiscard]] static QColor shadow();
    /// What lies over a window while a question waits for its answer.
    [[nodiscard]] static QColor scrim();

    Q_INVOKABLE [[nodiscard]] static QColor withAlpha(QColor color, double alpha);
    /// `color` as it looks on `surface`.
    Q_INVOKABLE [[nodiscard]] static QColor over(const QColor& surface, const QColor& color);

Q_SIGNALS:
    void adapted();
};

} // namespace ambrel
