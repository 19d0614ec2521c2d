#pragma once

#include <string>

#include <QSize>
#include <QUrl>
#include <QVariantMap>

namespace ambrel {

/// A view that there are pictures of.
struct Picture {
    std::string key;
    QUrl view;
    QVariantMap properties;
    /// Of the whole picture. Without a height: as high as the view asks to be. Empty: the view's own size, and some
    /// room around it.
    QSize size;
};

} // namespace ambrel
