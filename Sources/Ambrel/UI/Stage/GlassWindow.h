#pragma once

#include <memory>

#include <QFlags>
#include <QQuickView>
#include <QSize>
#include <QString>
#include <QVariantMap>

namespace ambrel {

class Compositor;
class Stage;

/// What the window manager puts around a window, and lets the user do with it.
enum class WindowStyle {
    titled = 1,
    closable = 2,
    miniaturizable = 4,
    resizable = 8,
    /// The view reaches under the title bar where the desktop draws one over it; it leaves room for it above.
    fullSizeContentView = 16,
};
Q_DECLARE_FLAGS(StyleMask, WindowStyle)
Q_DECLARE_OPERATORS_FOR_FLAGS(StyleMask)

/// How every window of the program is built: a view on the window background, which lets through what is behind where
/// the desktop blurs it.
struct GlassWindow {
    GlassWindow() = delete;

    /// `rootView` is a type of the module Ambrel.UI, made with `properties`. The window is hidden, centred on its
    /// screen, and sized by its owner, never by its content.
    [[nodiscard]] static std::unique_ptr<QQuickView> make(Stage& stage, Compositor& compositor, const QString& rootView,
                                                          const QVariantMap& properties, QSize size, StyleMask style);
    /// Where the type `view` of Ambrel.UI comes from.
    [[nodiscard]] static QUrl source(const QString& view);
};

} // namespace ambrel
