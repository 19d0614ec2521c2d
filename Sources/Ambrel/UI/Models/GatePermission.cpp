#include "UI/Models/GatePermission.h"

#include "DesignSystem/ABRenderConfig.h"
#include "Platform/WindowList.h"

namespace ambrel {

GatePermission::GatePermission(WindowList& windows, std::function<void()> onOpenSettings, QObject* parent)
    : QObject(parent), onOpenSettings_(std::move(onOpenSettings)) {
    if (!ABRenderConfig::isSnapshot) {
        changes_ = windows.readableDidChange.subscribe([this](bool readable) { readableDidChange(readable); });
    }
}

void GatePermission::readableDidChange(bool readable) {
    if (readable && !granted_) {
        granted_ = true;
        grantedChanged();
    }
}

} // namespace ambrel
