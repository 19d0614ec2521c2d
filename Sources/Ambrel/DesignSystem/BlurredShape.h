#pragma once

#include <QImage>
#include <QSize>

namespace ambrel {

/// A picture of `size` with a white rounded rectangle that lies `blur` inside its edges and is blurred as far as that.
/// One byte of coverage a pixel; all lengths in pixels.
[[nodiscard]] QImage blurredShape(QSize size, int blur, double cornerRadius);

} // namespace ambrel
