#include "Capture/Frame.h"

#include "Core/Logger.h"
#include "DesignSystem/ABColor.h"

#include <QCoreApplication>
#include <QQmlComponent>
#include <QQuickItem>

namespace ambrel {

namespace {

/// Around a view whose size is its own.
constexpr int room = 20;

} // namespace

Frame::Frame(QQmlEngine& engine, const Picture& picture) {
    window_.setFlags(Qt::FramelessWindowHint);
    window_.setColor(ABColor::windowBg());
    QQmlComponent component(&engine, picture.view);
    view_.reset(qobject_cast<QQuickItem*>(component.createWithInitialProperties(picture.properties)));
    if (view_) {
        view_->setParentItem(window_.contentItem());
        arrange(picture.size);
    } else {
        Logger("ui").error("{} can't be drawn: {}", picture.key, component.errorString().toStdString());
    }
}

Frame::~Frame() = default;

void Frame::arrange(QSize size) {
    if (!size.isEmpty()) {
        view_->setSize(size);
        window_.resize(size);
        return;
    }
    const int around = size.width() > 0 ? 0 : room;
    if (around == 0) {
        view_->setWidth(size.width());
    }
    view_->setPosition(QPointF(around, around));
    const auto fit = [this, around] {
        window_.resize(view_->size().toSize() + QSize(2 * around, 2 * around));
    };
    fit();
    // Words that wrap say late how much room they take.
    QObject::connect(view_.get(), &QQuickItem::heightChanged, &window_, fit);
}

void Frame::showAt(QPoint position) {
    window_.setPosition(position);
    window_.show();
}

void Frame::write(const std::filesystem::path& file) {
    // Lays out what was never shown; what that puts off to the next turn belongs to the picture too.
    [[maybe_unused]] const auto unfinished = window_.grabWindow();
    QCoreApplication::processEvents();
    auto picture = window_.grabWindow();
    // The image itself doesn't know how many pixels a unit has.
    picture.setDevicePixelRatio(window_.effectiveDevicePixelRatio());
    [[maybe_unused]] const bool isWritten = picture.save(QString::fromStdString(file.string()), "PNG");
}

} // namespace ambrel
