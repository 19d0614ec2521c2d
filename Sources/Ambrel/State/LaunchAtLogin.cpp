#include "State/LaunchAtLogin.h"

#include "Core/Logger.h"
#include "Platform/LoginItem.h"

namespace ambrel {

namespace {

constexpr Logger logger("launch");

LoginItemFailure bringInLine(LoginItem& item, bool on) {
    if (on == LaunchAtLogin::isEnabled(item)) {
        return std::nullopt;
    }
    return on ? item.registerItem() : item.unregisterItem();
}

} // namespace

bool LaunchAtLogin::isEnabled(const LoginItem& item) {
    return item.status() == LoginItemStatus::enabled;
}

void LaunchAtLogin::setEnabled(LoginItem& item, bool on) {
    if (const auto failure = bringInLine(item, on)) {
        logger.error("launch at login set {} failed: {}", on, *failure);
        return;
    }
    logger.notice("launch at login -> {}", on);
}

void LaunchAtLogin::followProgram(LoginItem& item) {
    if (const auto failure = item.followProgram()) {
        logger.error("launch at login could not follow the program: {}", *failure);
    }
}

} // namespace ambrel
