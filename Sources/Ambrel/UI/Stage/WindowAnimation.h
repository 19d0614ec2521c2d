#pragma once

class QQuickView;

namespace ambrel {

/// Lets `window` come in: its content grows from `scaleFrom` on a spring, and the window fades from `fromAlpha` within
/// `duration` seconds.
void animateWindowIn(QQuickView& window, double scaleFrom, double fromAlpha, double duration);

/// Fades `window` away within `duration` seconds, and hides it.
void animateWindowOut(QQuickView& window, double duration);

} // namespace ambrel
