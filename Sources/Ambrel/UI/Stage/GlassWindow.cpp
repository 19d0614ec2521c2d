#include "UI/Stage/GlassWindow.h"

#include "DesignSystem/ABAppearance.h"
#include "DesignSystem/ABColor.h"
#include "DesignSystem/ABRenderConfig.h"
#include "Platform/Compositor.h"
#include "UI/Stage/Stage.h"

#include <QGuiApplication>
#include <QIcon>
#include <QScreen>
#include <QSurfaceFormat>

namespace ambrel {

namespace {

constexpr int alphaOfGlass = 208;

Qt::WindowFlags flags(StyleMask style) {
    Qt::WindowFlags flags = Qt::Window | Qt::CustomizeWindowHint;
    flags.setFlag(Qt::WindowTitleHint, style.testFlag(WindowStyle::titled));
    flags.setFlag(Qt::WindowCloseButtonHint, style.testFlag(WindowStyle::closable));
    flags.setFlag(Qt::WindowSystemMenuHint, style.testFlag(WindowStyle::closable));
    flags.setFlag(Qt::WindowMinimizeButtonHint, style.testFlag(WindowStyle::miniaturizable));
    flags.setFlag(Qt::WindowMaximizeButtonHint, style.testFlag(WindowStyle::resizable));
    return flags;
}

void letThrough(QQuickView& view) {
    auto format = view.format();
    format.setAlphaBufferSize(8);
    view.setFormat(format);
}

void paintBackground(QQuickView& view, bool isGlass) {
    const auto paint = [&view, isGlass] {
        QColor colour = ABColor::windowBg();
        colour.setAlpha(isGlass ? alphaOfGlass : 255);
        view.setColor(colour);
    };
    paint();
    QObject::connect(&ABAppearance::shared(), &ABAppearance::darkChanged, &view, paint);
}

void centre(QQuickView& view) {
    const auto* const screen = view.screen() != nullptr ? view.screen() : QGuiApplication::primaryScreen();
    QRect frame(QPoint(), view.size());
    frame.moveCenter(screen->availableGeometry().center());
    view.setPosition(frame.topLeft());
}

} // namespace

QUrl GlassWindow::source(const QString& view) {
    return QStringLiteral("qrc:/qt-project.org/imports/Ambrel/UI/%1.qml").arg(view);
}

std::unique_ptr<QQuickView> GlassWindow::make(Stage& stage, Compositor& compositor, const QString& rootView,
                                              const QVariantMap& properties, QSize size, StyleMask style) {
    auto view = std::make_unique<QQuickView>(&stage.engine(), nullptr);
    view->setFlags(flags(style));
    view->setIcon(QIcon(QStringLiteral(":/ambrel/icon/app.ambrel.Ambrel.svg")));
    const bool mayBeGlass = !ABRenderConfig::forceMaterialFallback && compositor.isCompositing();
    if (mayBeGlass) {
        letThrough(*view);
    }
    view->setResizeMode(QQuickView::SizeRootObjectToView);
    view->resize(size);
    view->setInitialProperties(properties);
    view->setSource(source(rootView));
    view->create();
    paintBackground(*view, mayBeGlass && compositor.blurBehind(view->winId()));
    centre(*view);
    stage.follow(*view, style.testFlag(WindowStyle::titled));
    return view;
}

} // namespace ambrel
