#include "UI/Models/AppearanceGuard.h"

#include "State/AppSettings.h"

#include <utility>

namespace ambrel {

void AppearanceGuard::setShowDockIcon(bool value) {
    if (!value && settings_.hideMenuBarIcon.get()) {
        ask(Confirm::hideDock);
    } else {
        settings_.showDockIcon.set(value);
    }
}

void AppearanceGuard::setHideMenuBarIcon(bool value) {
    if (value && !settings_.showDockIcon.get()) {
        ask(Confirm::hideMenuBar);
    } else {
        settings_.hideMenuBarIcon.set(value);
    }
}

void AppearanceGuard::accept() {
    const auto accepted = asking_;
    ask(Confirm::none);
    if (accepted == Confirm::hideMenuBar) {
        settings_.seenHideIconWarning.set(true);
        settings_.hideMenuBarIcon.set(true);
    } else if (accepted == Confirm::hideDock) {
        settings_.showDockIcon.set(false);
    }
}

void AppearanceGuard::ask(Confirm confirm) {
    if (std::exchange(asking_, confirm) != confirm) {
        askingChanged();
    }
}

} // namespace ambrel
