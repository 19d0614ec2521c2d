#include "DesignSystem/ABDynamicType.h"

#include "DesignSystem/ABAppearance.h"

#include <algorithm>
#include <utility>

#include <QQmlEngine>

namespace ambrel {

ABDynamicType::ABDynamicType(QObject* item) : QObject(item), item_(qobject_cast<QQuickItem*>(item)) {
    connect(&ABAppearance::shared(), &ABAppearance::textScaleChanged, this, &ABDynamicType::refresh);
    follow();
    if (item_ != nullptr) {
        beFollowedIn(*item_);
    }
}

/// Items further in may have looked for their bound before there was one.
void ABDynamicType::beFollowedIn(const QQuickItem& item) {
    for (auto* const child : item.childItems()) {
        if (auto* const inner = on(child)) {
            inner->follow();
        }
        beFollowedIn(*child);
    }
}

ABDynamicType* ABDynamicType::on(QQuickItem* item) {
    return qobject_cast<ABDynamicType*>(qmlAttachedPropertiesObject<ABDynamicType>(item, false));
}

ABDynamicType* ABDynamicType::qmlAttachedProperties(QObject* item) {
    return new ABDynamicType(item);
}

void ABDynamicType::setMaximum(double maximum) {
    if (std::exchange(maximum_, maximum) != maximum) {
        Q_EMIT maximumChanged();
        refresh();
    }
}

/// Views are put together from the inside out: an item gets its ancestors one after the other, and so is the bound
/// found.
void ABDynamicType::follow() {
    for (const auto& connection : std::exchange(ancestors_, {})) {
        disconnect(connection);
    }
    outer_ = nullptr;
    for (auto* item = item_.data(); item != nullptr && outer_ == nullptr; item = item->parentItem()) {
        ancestors_ << connect(item, &QQuickItem::parentChanged, this, &ABDynamicType::follow);
        auto* const parent = item->parentItem();
        outer_ = parent != nullptr ? on(parent) : nullptr;
    }
    if (outer_ != nullptr) {
        ancestors_ << connect(outer_, &ABDynamicType::scaleChanged, this, &ABDynamicType::refresh);
    }
    refresh();
}

void ABDynamicType::refresh() {
    const double around = outer_ != nullptr ? outer_->scale() : ABAppearance::shared().textScale();
    const double scale = std::min(around, maximum_);
    if (std::exchange(scale_, scale) != scale) {
        Q_EMIT scaleChanged();
    }
}

} // namespace ambrel
