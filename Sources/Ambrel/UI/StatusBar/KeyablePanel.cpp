#include "UI/StatusBar/KeyablePanel.h"

#include "DesignSystem/ABMetric.h"
#include "DesignSystem/ABRenderConfig.h"
#include "Platform/ClickMonitor.h"
#include "Platform/Compositor.h"
#include "Platform/Workspace.h"
#include "UI/Stage/GlassWindow.h"
#include "UI/Stage/Stage.h"
#include "UI/StatusBar/PanelPlace.h"

#include <QCoreApplication>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QPainterPath>
#include <QQuickItem>
#include <QQuickView>
#include <QScreen>

namespace ambrel {

namespace {

using namespace std::chrono_literals;
/// From the press that closes a panel to the click that it becomes on the status item.
constexpr auto lengthOfClick = 500ms;

bool contains(const Rect& rect, double x, double y) {
    return x >= rect.x && x < rect.x + rect.width && y >= rect.y && y < rect.y + rect.height;
}

/// The position in the toolkit's units of a point in pixels of the whole screen.
QPoint fromPixels(const QScreen& screen, double x, double y) {
    const auto origin = screen.geometry().topLeft();
    const auto ratio = screen.devicePixelRatio();
    return {origin.x() + qRound((x - origin.x()) / ratio), origin.y() + qRound((y - origin.y()) / ratio)};
}

/// Where nothing shows through a window, its corners are cut off instead.
QRegion rounded(QSize size) {
    QPainterPath path;
    path.addRoundedRect(QRectF(QPointF(), size), ABMetric::panelRadius, ABMetric::panelRadius);
    return {path.toFillPolygon().toPolygon()};
}

Rect inPixels(const QWindow& window) {
    const auto origin = window.screen()->geometry().topLeft();
    const auto ratio = window.screen()->devicePixelRatio();
    return {origin.x() + (window.x() - origin.x()) * ratio, origin.y() + (window.y() - origin.y()) * ratio,
            window.width() * ratio, window.height() * ratio};
}

} // namespace

KeyablePanel::KeyablePanel(Neighbours neighbours)
    : neighbours_(neighbours), lettingGo_(neighbours.stage.willLetGo.subscribe([this] { forget(); })) {}

KeyablePanel::~KeyablePanel() {
    removeMonitors();
}

void KeyablePanel::show(const StatusItemPlace& place, const QString& rootView, const QVariantMap& properties) {
    if (wasClosedByThisClick(place)) {
        closing_.reset();
        return;
    }
    place_ = place;
    if (!window_ || rootView_ != rootView) {
        makeWindow(rootView, properties);
    }
    putInPlace();
    window_->show();
    window_->raise();
    takeKeyboard();
    removeMonitors();
    installMonitors();
}

void KeyablePanel::dismiss() {
    removeMonitors();
    if (isVisible()) {
        window_->setKeyboardGrabEnabled(false);
        window_->hide();
    }
}

bool KeyablePanel::isVisible() const {
    return window_ && window_->isVisible();
}

void KeyablePanel::forget() {
    dismiss();
    window_.reset();
}

void KeyablePanel::makeWindow(const QString& rootView, const QVariantMap& properties) {
    window_ = std::make_unique<QQuickView>(&neighbours_.stage.engine(), nullptr);
    rootView_ = rootView;
    window_->setFlags(Qt::ToolTip | Qt::FramelessWindowHint | Qt::BypassWindowManagerHint);
    if (isTranslucent()) {
        auto format = window_->format();
        format.setAlphaBufferSize(8);
        window_->setFormat(format);
        window_->setColor(Qt::transparent);
    }
    window_->setResizeMode(QQuickView::SizeViewToRootObject);
    window_->setInitialProperties(properties);
    window_->setSource(GlassWindow::source(rootView));
    window_->installEventFilter(this);
    neighbours_.stage.follow(*window_, false);
}

bool KeyablePanel::isTranslucent() const {
    return !ABRenderConfig::forceMaterialFallback && neighbours_.compositor.isCompositing();
}

void KeyablePanel::putInPlace() {
    const auto ratio = window_->screen()->devicePixelRatio();
    const auto* const content = window_->rootObject();
    const QSizeF fitting = content != nullptr ? QSizeF(content->implicitWidth(), content->implicitHeight()) : QSizeF();
    const auto frame = panelPlace(fitting.width() * ratio, fitting.height() * ratio, place_, ratio);
    window_->resize(fitting.toSize());
    window_->setMask(isTranslucent() ? QRegion() : rounded(window_->size()));
    window_->setPosition(fromPixels(*window_->screen(), frame.x, frame.y));
}

void KeyablePanel::takeKeyboard() {
    window_->setKeyboardGrabEnabled(true);
    // The window never becomes the active one, so nobody but us tells the view that it has the keyboard.
    QFocusEvent focus(QEvent::FocusIn, Qt::PopupFocusReason);
    QCoreApplication::sendEvent(window_.get(), &focus);
}

void KeyablePanel::installMonitors() {
    clicks_ = neighbours_.clicks.watch([this](double x, double y) { pressed(x, y); });
    activation_ = neighbours_.workspace.didActivate.subscribe([this](const auto&) { dismiss(); });
}

void KeyablePanel::removeMonitors() {
    clicks_ = {};
    activation_ = {};
}

void KeyablePanel::pressed(double x, double y) {
    // The item's own click closes the panel by itself, as a toggle.
    if (isVisible() && !contains(inPixels(*window_), x, y) && !contains(place_.button, x, y)) {
        closing_ = {x, y, std::chrono::steady_clock::now()};
        dismiss();
    }
}

bool KeyablePanel::wasClosedByThisClick(const StatusItemPlace& place) const {
    return closing_ && std::chrono::steady_clock::now() - closing_->when < lengthOfClick &&
           contains(place.button, closing_->x, closing_->y);
}

bool KeyablePanel::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) {
        dismiss();
        return true;
    }
    return QObject::eventFilter(watched, event);
}

} // namespace ambrel
