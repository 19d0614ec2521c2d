#include "UI/Settings/WindowSizer.h"

#include "DesignSystem/ABAppearance.h"

#include <utility>

#include <QQuickWindow>
#include <QTimer>
#include <QVariantAnimation>

namespace ambrel {

namespace {

using namespace std::chrono_literals;
constexpr auto retryInterval = 50ms;
constexpr int retries = 10;
constexpr auto resizing = 280ms;

QEasingCurve easeInEaseOut() {
    QEasingCurve curve(QEasingCurve::BezierSpline);
    curve.addCubicBezierSegment({0.42, 0}, {0.58, 1}, {1, 1});
    return curve;
}

QRect aboutTheCentreOf(const QRect& frame, QSize size) {
    return {QPoint(frame.x() + (frame.width() - size.width()) / 2, frame.y() + (frame.height() - size.height()) / 2),
            size};
}

} // namespace

void WindowSizer::setIsAdvanced(bool isAdvanced) {
    if (std::exchange(isAdvanced_, isAdvanced) != isAdvanced) {
        isAdvancedChanged();
        if (isComponentComplete()) {
            applyLater();
        }
    }
}

void WindowSizer::componentComplete() {
    QQuickItem::componentComplete();
    applyLater();
}

void WindowSizer::applyLater() {
    QTimer::singleShot(0, this, [this] { apply(isAdvanced_, retries); });
}

void WindowSizer::apply(bool advanced, int retriesLeft) {
    if (window() == nullptr) {
        if (retriesLeft >= 1) {
            QTimer::singleShot(retryInterval, this, [=, this] { apply(advanced, retriesLeft - 1); });
        }
        return;
    }
    if (applied_ == advanced) {
        return;
    }
    const bool isFirst = !std::exchange(applied_, advanced).has_value();
    window()->setMinimumSize(SettingsForm::smallest());
    window()->setMaximumSize(SettingsForm::largest());
    const auto form = SettingsForm::of(advanced);
    const auto frame = aboutTheCentreOf(window()->geometry(), form.size);
    if (isFirst || ABAppearance::shared().reducedMotion()) {
        window()->setGeometry(frame);
        finish(form);
    } else {
        move(frame, form);
    }
}

void WindowSizer::move(const QRect& frame, const SettingsForm& form) {
    auto* const movement = new QVariantAnimation(this);
    movement->setStartValue(window()->geometry());
    movement->setEndValue(frame);
    movement->setDuration(static_cast<int>(std::chrono::milliseconds(resizing).count()));
    movement->setEasingCurve(easeInEaseOut());
    connect(movement, &QVariantAnimation::valueChanged, this,
            [this](const QVariant& value) { window()->setGeometry(value.toRect()); });
    connect(movement, &QVariantAnimation::finished, this, [this, form] { finish(form); });
    movement->start(QAbstractAnimation::DeleteWhenStopped);
}

void WindowSizer::finish(const SettingsForm& form) {
    // The form may have been changed back while the window was moving.
    if (applied_ != (form.size == SettingsForm::of(true).size)) {
        return;
    }
    window()->setMinimumSize(form.minimum);
    window()->setMaximumSize(form.maximum);
    log_.notice("settings window -> {} {}x{}", form.name, window()->width(), window()->height());
}

} // namespace ambrel
