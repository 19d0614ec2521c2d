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
    /// Of the whole picture. Empty: the view's own, and some room around it.
    QSize size;
};

} // namespace ambrel
