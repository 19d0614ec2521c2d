#pragma once

#include "Capture/Picture.h"

#include <filesystem>
#include <memory>

#include <QQuickWindow>

class QQmlEngine;
class QQuickItem;

namespace ambrel {

/// A view on the background of windows, in a window of the picture's size that is not shown by itself.
class Frame {
public:
    Frame(QQmlEngine& engine, const Picture& picture);
    Frame(const Frame&) = delete;
    Frame& operator=(const Frame&) = delete;
    ~Frame();

    void showAt(QPoint position);
    /// A picture that can't be written is left out.
    void write(const std::filesystem::path& file);

private:
    void arrange(QSize size);

    QQuickWindow window_;
    std::unique_ptr<QQuickItem> view_;
};

} // namespace ambrel
