#pragma once

#include <QQuickImageProvider>

namespace ambrel {

class Workspace;

/// Pictures of applications' icons for `image://application/IDENTIFIER`. One without an icon of its own gets the first
/// letter of its name. Asked on the main thread, in pixels of the device.
class ApplicationIconProvider final : public QQuickImageProvider {
public:
    static constexpr const char* scheme = "application";

    /// `workspace` must outlive this object.
    explicit ApplicationIconProvider(const Workspace& workspace);

    QImage requestImage(const QString& id, QSize* size, const QSize& requestedSize) override;

private:
    const Workspace& workspace_;
};

} // namespace ambrel
