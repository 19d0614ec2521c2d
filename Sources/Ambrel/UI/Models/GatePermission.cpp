#include "UI/Models/GatePermission.h"

#include "DesignSystem/ABRenderConfig.h"
#include "Platform/Accessibility.h"

namespace ambrel {

GatePermission::GatePermission(Accessibility& accessibility, std::function<void()> onOpenSettings, QObject* parent)
    : QObject(parent), onOpenSettings_(std::move(onOpenSettings)) {
    if (!ABRenderConfig::isSnapshot) {
        changes_ = accessibility.trustDidChange.subscribe([this](bool trusted) { trustDidChange(trusted); });
    }
}

void GatePermission::trustDidChange(bool trusted) {
    if (trusted && !granted_) {
        granted_ = true;
        grantedChanged();
    }
}

} // namespace ambrel
