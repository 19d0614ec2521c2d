#pragma once

#include <optional>

#include <QPoint>

class QWindow;

namespace ambrel {

/// Where a user has left a window, for the next one in its place.
class WindowPlace {
public:
    /// Puts a window that isn't shown yet there, and remembers where it goes. This object must outlive it.
    void follow(QWindow& window);

private:
    std::optional<QPoint> place_;
};

} // namespace ambrel
